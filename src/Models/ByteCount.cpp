#include "ByteCount.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Unit
{
    quint64 bytes;
    bool hasDecimal;
    QLatin1StringView name;
};

constexpr std::array units{
    Unit{1'000, false, "KB"_L1},
    Unit{1'000'000, true, "MB"_L1},
    Unit{1'000'000'000, true, "GB"_L1},
    Unit{1'000'000'000'000, true, "TB"_L1},
    Unit{1'000'000'000'000'000, true, "PB"_L1},
    Unit{1'000'000'000'000'000'000, true, "EB"_L1},
};

/// The count in steps of the unit's last shown digit, rounded half up.
quint64 rounded(quint64 bytes, quint64 step)
{
    return (bytes + step / 2) / step;
}

} // namespace

QString formattedByteCount(qint64 bytes)
{
    const auto count = static_cast<quint64>(qMax<qint64>(bytes, 0));
    if (count < 1'000)
        return QString::number(count) + (count == 1 ? u" byte"_s : u" bytes"_s);
    for (const Unit& unit : units) {
        const quint64 steps = rounded(count, unit.hasDecimal ? unit.bytes / 10 : unit.bytes);
        const quint64 whole = unit.hasDecimal ? steps / 10 : steps;
        if (whole >= 1'000 && unit.bytes != units.back().bytes)
            continue; // also what rounding alone has made a thousand
        const quint64 tenths = unit.hasDecimal ? steps % 10 : 0;
        const QString fraction = tenths == 0 ? QString() : u'.' + QString::number(tenths);
        return QString::number(whole) + fraction + u' ' + unit.name;
    }
    Q_UNREACHABLE();
}
