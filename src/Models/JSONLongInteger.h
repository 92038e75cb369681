#pragma once

#include "JSONScan.h"

#include <QString>

#include <optional>

/// Whole numbers that do not fit into 64 bits. Qt's parser keeps such a number as a double, which loses its
/// last digits: a long reference would name another record. So its digits go through the parser as a text,
/// behind a mark that no answer can spell because each run of the program makes another one.
namespace JSONLongInteger {

/// The document with a marked text in the place of each such number; as it is where it holds none. What is no
/// JSON stays none.
/// \param candidates  the numbers to look at, from left to right
QByteArray marked(const QByteArray& json, const QList<JSONScan::Span>& candidates);
/// The other way round, in compact JSON.
QByteArray unmarked(const QByteArray& compact);

/// The digits, with their sign, that stand behind the mark; nothing for every other text.
std::optional<QString> digitsOf(const QString& text);

} // namespace JSONLongInteger
