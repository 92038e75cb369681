#include "PropertyList.h"

#include "BinaryPropertyList.h"

#include <plist/plist.h>

#include <memory>
#include <type_traits>

namespace {

struct Free
{
    void operator()(plist_t node) const { plist_free(node); }
};
using Node = std::unique_ptr<std::remove_pointer_t<plist_t>, Free>;

/// The parser reports no errors; what it cannot read is no node.
Node parsed(const QByteArray& list)
{
    if (list.isEmpty() || list.size() > PropertyList::maximumSize)
        return {};
    if (BinaryPropertyList::isBinary(list) && !BinaryPropertyList::isTree(list))
        return {};
    plist_t root = nullptr;
    plist_from_memory(list.constData(), static_cast<uint32_t>(list.size()), &root);
    return Node(root);
}

bool has(plist_t node, plist_type type)
{
    return node != nullptr && plist_get_node_type(node) == type;
}

} // namespace

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
