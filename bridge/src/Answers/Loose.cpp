#include "Answers/Loose.h"

namespace bridge {

Variant variantOf(Id id)
{
    return static_cast<Variant>(id % 3);
}

nlohmann::json looseNumber(Variant variant, long long number)
{
    if (variant == Variant::Texts)
        return std::to_string(number);
    return number;
}

nlohmann::json looseId(Variant variant, Id id)
{
    return id == 0 ? looseText(variant, {}) : looseNumber(variant, id);
}

nlohmann::json looseText(Variant variant, const std::string& text)
{
    if (!text.empty())
        return text;
    switch (variant) {
    case Variant::Plain:
        return "";
    case Variant::Texts:
        return "NULL";
    case Variant::Aliases:
        return nullptr;
    }
    return nullptr;
}

nlohmann::json looseFlag(Variant variant, bool flag)
{
    switch (variant) {
    case Variant::Plain:
        return flag;
    case Variant::Texts:
        return flag ? "1" : "0";
    case Variant::Aliases:
        return flag ? nlohmann::json("yes") : nlohmann::json();
    }
    return flag;
}

static Moment momentOf(long long stored)
{
    return Moment(std::chrono::milliseconds(stored));
}

std::string shownMoment(long long stored)
{
    return newYorkDateTime(momentOf(stored));
}

std::string changeMoment(long long stored)
{
    return utcStamp(momentOf(stored));
}

} // namespace bridge
