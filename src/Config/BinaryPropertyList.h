#pragma once

#include <QByteArray>

/// The structure of a binary property list, checked before a parser is trusted with it. In this form
/// containers hold references, so that a few bytes can describe a nest of exponential size or of any depth,
/// and the parser builds it out in full.
namespace BinaryPropertyList {

/// Whether the bytes claim to be of this form.
bool isBinary(const QByteArray& list);

/// Whether all containers together form a plain tree of moderate depth: each is referred to at most once, the
/// root never, and every part lies within the bytes.
bool isTree(const QByteArray& list);

} // namespace BinaryPropertyList
