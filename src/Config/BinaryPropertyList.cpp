#include "BinaryPropertyList.h"

#include <optional>
#include <vector>

namespace {

constexpr quint64 headerSize = 8;
constexpr quint64 trailerSize = 32;
/// Far more than the one dictionary of a service's list needs. What is referred to is copied, so this also
/// bounds the memory that a list can take.
constexpr quint64 mostReferences = 512;

/// Where a container's references lie, and how many they are.
struct References
{
    quint64 at = 0;
    quint64 count = 0;
};

class Structure
{
public:
    explicit Structure(const QByteArray& list) : list_(list) { }

    /// Reads the trailer, which lies at the end and describes the rest.
    bool open()
    {
        const auto size = static_cast<quint64>(list_.size());
        if (size < headerSize + trailerSize)
            return false;
        const quint64 trailer = size - trailerSize;
        offsetSize_ = *number(trailer + 6, 1);
        referenceSize_ = *number(trailer + 7, 1);
        count_ = *number(trailer + 8, 8);
        root_ = *number(trailer + 16, 8);
        offsets_ = *number(trailer + 24, 8);
        return count_ <= size && root_ < count_ && offsets_ < size;
    }

    bool isTree() const
    {
        std::vector<bool> isTaken(count_);
        isTaken[root_] = true;
        quint64 references = 0;
        for (quint64 object = 0; object < count_; ++object) {
            const auto found = referencesOf(object);
            if (!found || found->count > mostReferences - references)
                return false;
            references += found->count;
            for (quint64 index = 0; index < found->count; ++index) {
                if (!take(number(found->at + index * referenceSize_, referenceSize_), isTaken))
                    return false;
            }
        }
        return true;
    }

private:
    /// A big-endian number of up to 8 bytes; nothing when it does not lie within the list.
    std::optional<quint64> number(quint64 at, quint64 size) const
    {
        const auto end = static_cast<quint64>(list_.size());
        if (size == 0 || size > 8 || at > end || size > end - at)
            return {};
        quint64 result = 0;
        for (quint64 index = at; index < at + size; ++index)
            result = result << 8 | static_cast<quint8>(list_[static_cast<qsizetype>(index)]);
        return result;
    }

    /// Of scalars, none; nothing when the object is cut off.
    std::optional<References> referencesOf(quint64 object) const
    {
        const auto at = number(offsets_ + object * offsetSize_, offsetSize_);
        const auto marker = at ? number(*at, 1) : std::nullopt;
        if (!marker)
            return {};
        const quint64 kind = *marker >> 4;
        const bool isDictionary = kind == 0xD;
        if (kind != 0xA && kind != 0xC && !isDictionary)
            return References();
        References found{.at = *at + 1, .count = *marker & 0xF};
        if (found.count == 0xF) { // the count follows as a number of its own
            const auto width = number(found.at, 1);
            const auto count = width ? number(found.at + 1, quint64(1) << (*width & 0xF)) : std::nullopt;
            if (!count || *count > mostReferences)
                return {};
            found = {.at = found.at + 1 + (quint64(1) << (*width & 0xF)), .count = *count};
        }
        found.count *= isDictionary ? 2 : 1; // keys, then values
        return found;
    }

    /// Notes a reference; false when it leads nowhere, or to a container that already has its place.
    bool take(std::optional<quint64> target, std::vector<bool>& isTaken) const
    {
        if (!target || *target >= count_)
            return false;
        const auto inner = referencesOf(*target);
        if (!inner)
            return false;
        if (inner->count == 0)
            return true;
        const bool isFree = !isTaken[*target];
        isTaken[*target] = true;
        return isFree;
    }

    const QByteArray& list_;
    quint64 offsetSize_ = 0;
    quint64 referenceSize_ = 0;
    quint64 count_ = 0;
    quint64 root_ = 0;
    quint64 offsets_ = 0;
};

} // namespace

bool BinaryPropertyList::isBinary(const QByteArray& list)
{
    return list.startsWith("bplist");
}

bool BinaryPropertyList::isTree(const QByteArray& list)
{
    Structure structure(list);
    return structure.open() && structure.isTree();
}
