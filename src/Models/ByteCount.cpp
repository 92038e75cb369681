#include "ByteCount.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Unit
{
    quint64 bytes;
    QLatin1StringView name;
};

constexpr std::array units{
    Unit{1'000, "KB"_L1},
    Unit{1'000'000, "MB"_L1},
    Unit{1'000'000'000, "GB"_L1},
    Unit{1'000'000'000'000, "TB"_L1},
    Unit{1'000'000'000'000'000, "PB"_L1},
    Unit{1'000'000'000'000'000'000, "EB"_L1},
};

/// The count in tenths of the unit, rounded half up.
quint64 tenthsOf(const Unit& unit, quint64 bytes)
{
    const quint64 tenth = unit.bytes / 10;
    return (bytes + tenth / 2) / tenth;
}

} // namespace

QString formattedByteCount(qint64 bytes)
{
    const auto count = static_cast<quint64>(qMax<qint64>(bytes, 0));
    if (count < 1'000)
        return QString::number(count) + (count == 1 ? u" byte"_s : u" bytes"_s);
    for (const Unit& unit : units) {
        const quint64 tenths = tenthsOf(unit, count);
        const quint64 whole = tenths / 10;
        if (whole >= 1'000 && unit.bytes != units.back().bytes)
            continue; // also what rounding alone has made a thousand
        const QString fraction = tenths % 10 == 0 ? QString() : u'.' + QString::number(tenths % 10);
        return QString::number(whole) + fraction + u' ' + unit.name;
    }
    Q_UNREACHABLE();
}
