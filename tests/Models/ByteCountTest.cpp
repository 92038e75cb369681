#include "ByteCount.h"
#include "Rows.h"

#include <rapidcheck/gtest.h>

#include <QRegularExpression>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

struct CountRow : Named
{
    qint64 bytes;
    QString text;
};

class ByteCount : public testing::TestWithParam<CountRow>
{ };

TEST_P(ByteCount, ReadsAsPeopleSayIt)
{
    EXPECT_EQ(formattedByteCount(GetParam().bytes), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Counts, ByteCount,
    testing::Values(CountRow{{"Zero"}, 0, u"0 bytes"_s}, CountRow{{"One"}, 1, u"1 byte"_s},
        CountRow{{"Two"}, 2, u"2 bytes"_s}, CountRow{{"LastBytes"}, 999, u"999 bytes"_s},
        CountRow{{"FirstKilobyte"}, 1'000, u"1 KB"_s}, CountRow{{"RoundedDown"}, 1'049, u"1 KB"_s},
        CountRow{{"RoundedUp"}, 1'050, u"1.1 KB"_s}, CountRow{{"HalfAKilobyteMore"}, 2'500, u"2.5 KB"_s},
        CountRow{{"Binary"}, 2'048, u"2 KB"_s}, CountRow{{"WholeKilobytes"}, 860'000, u"860 KB"_s},
        CountRow{{"LastKilobytes"}, 999'949, u"999.9 KB"_s},
        CountRow{{"KilobytesRoundedToMegabyte"}, 999'950, u"1 MB"_s},
        CountRow{{"FirstMegabyte"}, 1'000'000, u"1 MB"_s}, CountRow{{"NoTenthYet"}, 1'049'999, u"1 MB"_s},
        CountRow{{"FirstTenth"}, 1'050'000, u"1.1 MB"_s}, CountRow{{"Tenths"}, 2'400'000, u"2.4 MB"_s},
        CountRow{{"WholeMegabytes"}, 50'000'000, u"50 MB"_s},
        CountRow{{"LastMegabytes"}, 999'949'999, u"999.9 MB"_s},
        CountRow{{"MegabytesRoundedToGigabyte"}, 999'950'000, u"1 GB"_s},
        CountRow{{"Gigabytes"}, 2'147'483'649, u"2.1 GB"_s},
        CountRow{{"Terabytes"}, 1'500'000'000'000, u"1.5 TB"_s},
        CountRow{{"Petabytes"}, 7'000'000'000'000'000, u"7 PB"_s},
        CountRow{{"PetabytesRoundedToExabyte"}, 999'999'999'999'999'999, u"1 EB"_s},
        CountRow{{"Largest"}, std::numeric_limits<qint64>::max(), u"9.2 EB"_s},
        CountRow{{"Negative"}, -1, u"0 bytes"_s}),
    RowName());

RC_GTEST_PROP(ByteCountProperty, NeverShowsAThousandOfAUnitNorMoreThanOneDecimal, ())
{
    const auto shift = *rc::gen::inRange(0, 63);
    const auto bytes
        = static_cast<qint64>(*rc::gen::arbitrary<quint64>() >> (1U + static_cast<unsigned>(shift)));
    static const QRegularExpression form(u"\\A([1-9]?[0-9]?[0-9])(\\.[1-9])? (bytes?|[KMGTPE]B)\\z"_s);
    RC_ASSERT(form.match(formattedByteCount(bytes)).hasMatch());
}

} // namespace
