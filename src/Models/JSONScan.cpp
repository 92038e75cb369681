#include "JSONScan.h"

#include <array>
#include <cstring>
#include <string_view>

namespace {

enum class Kind : quint8
{
    foreign,
    passed, ///< blanks, closing brackets, and the letters of words, on which the parser insists
    quote,
    number,
    opening,
    separator,
};

constexpr std::array<Kind, 256> kinds = [] {
    std::array<Kind, 256> table{};
    const auto set = [&table](std::string_view bytes, Kind kind) {
        for (const char byte : bytes)
            table[static_cast<unsigned char>(byte)] = kind;
    };
    set(" \t\n\r]}truefalsn", Kind::passed);
    set("\"", Kind::quote);
    set("-0123456789", Kind::number);
    set("[{", Kind::opening);
    set(",:", Kind::separator);
    return table;
}();

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Of the smallest number that does not fit into 64 bits.
constexpr qsizetype fewestLongDigits = 19;

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool isOneOf(std::string_view bytes, char byte)
{
    return bytes.find(byte) != std::string_view::npos;
}

/// Whether one of eight bytes of a text ends it, escapes something, or may not stand there at all.
bool holdsSpecial(const char* bytes)
{
    constexpr quint64 ones = 0x0101010101010101;
    constexpr quint64 tops = ones * 0x80;
    quint64 eight = 0;
    std::memcpy(&eight, bytes, sizeof eight);
    // A byte below the subtrahend borrows into its top bit.
    const auto below = [eight](quint64 all, quint64 limit) { return (all - ones * limit) & ~eight & tops; };
    constexpr quint64 firstPrintable = 0x20;
    return below(eight, firstPrintable) != 0 || below(eight ^ (ones * '"'), 1) != 0
        || below(eight ^ (ones * '\\'), 1) != 0;
}

} // namespace

JSONScan::JSONScan(const QByteArray& json) : json_(json)
{
    run();
}

void JSONScan::run()
{
    if (json_.startsWith(byteOrderMark))
        at_ = byteOrderMark.size();
    while (at_ < json_.size()) {
        if (!step()) {
            if (flaw_ == Flaw::none)
                flaw_ = Flaw::malformed;
            return;
        }
    }
}

bool JSONScan::step()
{
    switch (kinds[static_cast<unsigned char>(json_[at_])]) {
    case Kind::passed:
        ++at_;
        return true;
    case Kind::quote:
        return passText();
    case Kind::number:
        return passNumber();
    case Kind::opening:
        ++at_;
        return count(costOfContainer + costOfValue);
    case Kind::separator:
        ++at_;
        return count(costOfValue);
    case Kind::foreign:
        break;
    }
    return false;
}

bool JSONScan::count(qint64 cost)
{
    cost_ += cost;
    if (cost_ > largestCost)
        flaw_ = Flaw::tooCostly;
    return flaw_ == Flaw::none;
}

bool JSONScan::passText()
{
    constexpr qsizetype stride = 8;
    constexpr char firstPrintable = ' ';
    ++at_;
    for (;;) {
        while (at_ + stride <= json_.size() && !holdsSpecial(json_.data() + at_))
            at_ += stride;
        if (at_ == json_.size())
            return false;
        const char byte = json_[at_++];
        if (byte == '"')
            return true;
        if (static_cast<unsigned char>(byte) < firstPrintable)
            return false;
        if (byte == '\\' && !isOneOf("\"\\/bfnrtu", byteAt(at_++)))
            return false;
    }
}

bool JSONScan::passNumber()
{
    const qsizetype begin = at_;
    if (byteAt(at_) == '-')
        ++at_;
    const qsizetype whole = at_;
    if (!passDigits() || (json_[whole] == '0' && at_ > whole + 1))
        return false;
    const qsizetype end = at_;
    if (byteAt(at_) == '.') {
        ++at_;
        if (!passDigits())
            return false;
    }
    if (isOneOf("eE", byteAt(at_))) {
        ++at_;
        if (isOneOf("+-", byteAt(at_)))
            ++at_;
        if (!passDigits())
            return false;
    }
    if (at_ == end && end - whole >= fewestLongDigits)
        longIntegers_ += {begin, end};
    return true;
}

bool JSONScan::passDigits()
{
    const qsizetype begin = at_;
    while (isDigit(byteAt(at_)))
        ++at_;
    return at_ > begin;
}
