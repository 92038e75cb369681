#include "Screen/NewYorkTime.h"

#include "Cases.h"
#include "LocalZone.h"
#include "Printing.h"

#include <QLocale>
#include <QTimeZone>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

QDateTime utc(const QString& text)
{
    return QDateTime::fromString(text, Qt::ISODate);
}

struct Moment
{
    const char* name;
    QString utc;
    QString date;
    QString time;
};

void PrintTo(const Moment& moment, std::ostream* out)
{
    *out << moment.name;
}

class NewYorkMoment : public testing::TestWithParam<Moment>
{ };

TEST_P(NewYorkMoment, IsWrittenAsNewYorkClocksShowIt)
{
    const QDateTime moment = utc(GetParam().utc);
    ASSERT_TRUE(moment.isValid());
    EXPECT_EQ(NewYorkTime::dateText(moment), GetParam().date);
    EXPECT_EQ(NewYorkTime::timeText(moment), GetParam().time);
}

TEST_P(NewYorkMoment, IsTheSameWhereverTheMomentWasChosen)
{
    for (const char* zone : {"Asia/Tokyo", "Pacific/Kiritimati", "America/Los_Angeles", "America/New_York"}) {
        const LocalZone here(zone);
        const QDateTime moment = utc(GetParam().utc).toLocalTime();
        EXPECT_EQ(NewYorkTime::dateText(moment), GetParam().date) << zone;
        EXPECT_EQ(NewYorkTime::timeText(moment), GetParam().time) << zone;
    }
}

INSTANTIATE_TEST_SUITE_P(Moments, NewYorkMoment,
    testing::Values(Moment{"Afternoon", u"2025-06-03T18:05:00Z"_s, u"2025-06-03"_s, u"2:05 PM"_s},
        Moment{"Noon", u"2025-06-03T16:00:00Z"_s, u"2025-06-03"_s, u"12:00 PM"_s},
        Moment{"Midnight", u"2025-07-05T04:00:00Z"_s, u"2025-07-05"_s, u"12:00 AM"_s},
        Moment{"BeforeMidnight", u"2025-07-05T03:59:00Z"_s, u"2025-07-04"_s, u"11:59 PM"_s},
        Moment{"TwoDigitHour", u"2025-12-01T15:30:00Z"_s, u"2025-12-01"_s, u"10:30 AM"_s},
        Moment{"NewYearsEve", u"2026-01-01T04:30:00Z"_s, u"2025-12-31"_s, u"11:30 PM"_s},
        Moment{"BeforeSpringForward", u"2025-03-09T06:59:00Z"_s, u"2025-03-09"_s, u"1:59 AM"_s},
        Moment{"AfterSpringForward", u"2025-03-09T07:00:00Z"_s, u"2025-03-09"_s, u"3:00 AM"_s},
        Moment{"FirstOfTheDoubleHour", u"2025-11-02T05:30:00Z"_s, u"2025-11-02"_s, u"1:30 AM"_s},
        Moment{"SecondOfTheDoubleHour", u"2025-11-02T06:30:00Z"_s, u"2025-11-02"_s, u"1:30 AM"_s},
        Moment{"AfterFallBack", u"2025-11-02T07:00:00Z"_s, u"2025-11-02"_s, u"2:00 AM"_s}),
    ByName());

TEST(NewYorkTime, SpeaksEnglishInEveryLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(NewYorkTime::dateText(utc(u"2025-06-03T18:05:00Z"_s)), u"2025-06-03"_s);
    EXPECT_EQ(NewYorkTime::timeText(utc(u"2025-06-03T18:05:00Z"_s)), u"2:05 PM"_s);
    QLocale::setDefault(before);
}

struct Beside
{
    const char* name;
    const char* zone;
    QString utc;
    QString text;
};

void PrintTo(const Beside& beside, std::ostream* out)
{
    *out << beside.name;
}

class NewYorkBeside : public testing::TestWithParam<Beside>
{ };

TEST_P(NewYorkBeside, SaysWhatTheLocalClocksDoNot)
{
    const LocalZone here(GetParam().zone);
    EXPECT_EQ(NewYorkTime::besideLocal(utc(GetParam().utc)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Zones, NewYorkBeside,
    testing::Values(Beside{"AtHome", "America/New_York", u"2025-06-03T18:05:00Z"_s, {}},
        Beside{"SameClocksElsewhere", "America/Toronto", u"2025-06-03T18:05:00Z"_s, {}},
        Beside{"SameDay", "UTC", u"2025-06-03T18:05:00Z"_s, u"2:05 PM EDT in New York"_s},
        Beside{"Winter", "UTC", u"2025-12-01T15:30:00Z"_s, u"10:30 AM EST in New York"_s},
        Beside{
            "DayBefore", "Asia/Tokyo", u"2025-06-03T00:05:00Z"_s, u"Mon, Jun 2, 8:05 PM EDT in New York"_s},
        Beside{"DayAfter", "Pacific/Pago_Pago", u"2025-06-03T10:00:00Z"_s,
            u"Tue, Jun 3, 6:00 AM EDT in New York"_s},
        Beside{"OnlyInSummer", "America/Panama", u"2025-12-01T15:30:00Z"_s, {}}),
    ByName());

} // namespace
