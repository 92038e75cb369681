#include "PropertyList.h"

#include "BinaryPropertyList.h"

#include <plist/plist.h>

#include <QStringDecoder>

#include <memory>
#include <type_traits>

namespace {

struct Free
{
    void operator()(plist_t node) const { plist_free(node); }
};
using Node = std::unique_ptr<std::remove_pointer_t<plist_t>, Free>;

/// An XML list as the parser reads it: in UTF-8, without the mark at the beginning that tells so. Nothing
/// when the bytes are not what they say they are.
QByteArray withoutMark(const QByteArray& list)
{
    const auto encoding = QStringConverter::encodingForData(list, u'<');
    if (!encoding)
        return list;
    QStringDecoder decode(*encoding);
    const QString text = decode(list);
    return decode.hasError() ? QByteArray() : text.toUtf8();
}

/// The parser reports no errors; what it cannot read is no node.
Node parsed(const QByteArray& list)
{
    if (list.size() > PropertyList::maximumSize)
        return {};
    const QByteArray plain = withoutMark(list);
    if (plain.isEmpty() || (BinaryPropertyList::isBinary(plain) && !BinaryPropertyList::isTree(plain)))
        return {};
    plist_t root = nullptr;
    plist_from_memory(plain.constData(), static_cast<uint32_t>(plain.size()), &root);
    return Node(root);
}

bool has(plist_t node, plist_type type)
{
    return node != nullptr && plist_get_node_type(node) == type;
}

} // namespace

bool PropertyList::isDictionary(const QByteArray& list)
{
    return has(parsed(list).get(), PLIST_DICT);
}

std::optional<QString> PropertyList::text(const QByteArray& list, const QString& key)
{
    const Node root = parsed(list);
    if (!has(root.get(), PLIST_DICT))
        return {};
    const plist_t value = plist_dict_get_item(root.get(), key.toUtf8().constData());
    if (!has(value, PLIST_STRING))
        return {};
    uint64_t length = 0;
    const char* bytes = plist_get_string_ptr(value, &length);
    const QString text = QString::fromUtf8(bytes, static_cast<qsizetype>(length));
    return text.isEmpty() ? std::nullopt : std::optional(text);
}
