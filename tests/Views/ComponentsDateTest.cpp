#include "ComponentsTest.h"

#include "Components/CalendarPopup.h"
#include "Components/DateField.h"
#include "Components/DateTimeField.h"
#include "Components/MonthGrid.h"
#include "Components/MonthModel.h"
#include "Components/WallClock.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

const QTimeZone newYork("America/New_York");

QDateTime utc(const char* iso)
{
    return QDateTime::fromString(QLatin1String(iso), Qt::ISODate);
}

QDateTime reading(int month, int day, int hour, int minute)
{
    return QDateTime(QDate(2026, month, day), QTime(hour, minute), Qt::UTC);
}

struct InstantRow
{
    std::string name;
    QDateTime reading;
    const char* instant;
};

class WallClockInstant : public testing::TestWithParam<InstantRow>
{ };

} // namespace

TEST_P(WallClockInstant, IsWhatTheClockShows)
{
    EXPECT_EQ(WallClock::instant(GetParam().reading, newYork), utc(GetParam().instant));
}

INSTANTIATE_TEST_SUITE_P(NewYork, WallClockInstant,
    testing::Values(InstantRow{"Winter", reading(1, 15, 14, 30), "2026-01-15T19:30:00Z"},
        InstantRow{"Summer", reading(7, 15, 14, 30), "2026-07-15T18:30:00Z"},
        InstantRow{"BeforeTheGap", reading(3, 8, 1, 59), "2026-03-08T06:59:00Z"},
        InstantRow{"InTheGap", reading(3, 8, 2, 30), "2026-03-08T07:30:00Z"},
        InstantRow{"AfterTheGap", reading(3, 8, 3, 0), "2026-03-08T07:00:00Z"}),
    ByName());

TEST(WallClockReading, InTheGapIsAnHourLater)
{
    const auto instant = WallClock::instant(reading(3, 8, 2, 30), newYork);
    EXPECT_EQ(WallClock::reading(instant, newYork), reading(3, 8, 3, 30));
}

class ComponentsDate : public ComponentsTest
{ };

TEST_F(ComponentsDate, ShowsAndKeepsAnInstant)
{
    DateTimeField field(newYork);
    field.setValue(utc("2026-03-12T18:30:00Z"));
    EXPECT_EQ(field.text(), u"Mar 12, 2026, 2:30 PM"_s);
    EXPECT_EQ(field.value(), utc("2026-03-12T18:30:00Z"));
}

TEST_F(ComponentsDate, ReadsTheSameFromRightToLeft)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    DateTimeField field(newYork);
    field.setValue(utc("2026-03-12T18:30:00Z"));
    EXPECT_EQ(field.text(), u"Mar 12, 2026, 2:30 PM"_s);
    field.resize(240, 36);
    EXPECT_LT(field.partRect(QStyle::SC_SpinBoxEditField).left(), 240 - 202);
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(ComponentsDate, TheSkippedHourDoesNoHarm)
{
    auto* field = shown(new DateTimeField(newYork));
    field->setValue(utc("2026-03-08T06:30:00Z"));
    QSignalSpy changes(field, &DateTimeField::valueChanged);
    field->setCurrentSection(QDateTimeEdit::HourSection);
    QTest::keyClick(field, Qt::Key_Up);
    EXPECT_EQ(field->text(), u"Mar 8, 2026, 2:30 AM"_s);
    EXPECT_EQ(field->value(), utc("2026-03-08T07:30:00Z"));
    QTest::keyClick(field, Qt::Key_Up);
    EXPECT_EQ(field->text(), u"Mar 8, 2026, 3:30 AM"_s);
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(ComponentsDate, BothPassesOfTheRepeatedHourAreKept)
{
    DateTimeField field(newYork);
    for (const char* instant : {"2026-11-01T05:30:00Z", "2026-11-01T06:30:00Z"}) {
        field.setValue(utc(instant));
        EXPECT_EQ(field.text(), u"Nov 1, 2026, 1:30 AM"_s);
        EXPECT_EQ(field.value(), utc(instant));
    }
}

TEST_F(ComponentsDate, NothingBeforeTheEarliestCanBeChosen)
{
    DateTimeField field(newYork);
    field.setEarliest(utc("2026-03-12T18:30:00Z"));
    field.setValue(utc("2026-03-12T10:00:00Z"));
    EXPECT_EQ(field.value(), utc("2026-03-12T18:30:00Z"));
    field.setValue(utc("2026-03-12T20:00:00Z"));
    field.setCurrentSection(QDateTimeEdit::DaySection);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.value(), utc("2026-03-12T20:00:00Z"));
}

TEST_F(ComponentsDate, ADateFieldSpeaksInDates)
{
    DateField field;
    QSignalSpy changes(&field, &DateField::valueChanged);
    field.setValue(QDate(2031, 9, 30));
    EXPECT_EQ(field.text(), u"Sep 30, 2031"_s);
    EXPECT_EQ(field.value(), QDate(2031, 9, 30));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(ComponentsDate, TheCalendarOpensWithKeysAndPicks)
{
    auto* field = shown(new DateField);
    field->setValue(QDate(2026, 3, 12));
    field->setFocus(Qt::TabFocusReason);
    QTest::keyClick(field, Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(field->calendar(), nullptr);
    auto* days = field->calendar()->days();
    QTest::keyClick(days, Qt::Key_Right);
    QTest::keyClick(days, Qt::Key_Down);
    QTest::keyClick(days, Qt::Key_Return);
    EXPECT_EQ(field->value(), QDate(2026, 3, 20));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(field->calendar(), nullptr);
}

TEST_F(ComponentsDate, EscapeClosesTheCalendarWithoutAChoice)
{
    auto* field = shown(new DateField);
    field->setValue(QDate(2026, 3, 12));
    QTest::keyClick(field, Qt::Key_F4);
    ASSERT_NE(field->calendar(), nullptr);
    QTest::keyClick(field->calendar()->days(), Qt::Key_Right);
    QTest::keyClick(field->calendar()->days(), Qt::Key_Escape);
    EXPECT_FALSE(field->calendar() && field->calendar()->isVisible());
    EXPECT_EQ(field->value(), QDate(2026, 3, 12));
}

TEST_F(ComponentsDate, ADateKeepsItsTimeOfDay)
{
    auto* field = shown(new DateTimeField(newYork));
    field->setValue(utc("2026-03-12T18:30:00Z"));
    field->openCalendar();
    emit field->calendar()->picked(QDate(2026, 3, 20));
    EXPECT_EQ(field->text(), u"Mar 20, 2026, 2:30 PM"_s);
}

namespace {

class ComponentsMonth : public ComponentsTest
{
protected:
    MonthGrid* grid = shown(new MonthGrid);
};

} // namespace

TEST_F(ComponentsMonth, KeysTurnItsPagesButNeverBeforeTheEarliest)
{
    grid->setDates(QDate(2026, 3, 30), QDate(2026, 3, 28), QDate(2026, 3, 28));
    QTest::keyClick(grid, Qt::Key_Down);
    EXPECT_EQ(grid->current(), QDate(2026, 4, 6));
    EXPECT_EQ(grid->month(), QDate(2026, 4, 1));
    QTest::keyClick(grid, Qt::Key_PageUp);
    EXPECT_EQ(grid->current(), QDate(2026, 3, 28));
    QTest::keyClick(grid, Qt::Key_Left);
    EXPECT_EQ(grid->current(), QDate(2026, 3, 28));
    QTest::keyClick(grid, Qt::Key_End);
    EXPECT_EQ(grid->current(), QDate(2026, 3, 31));
}

TEST_F(ComponentsMonth, AClickPicksADayButNotAForbiddenOne)
{
    grid->setDates(QDate(2026, 3, 12), QDate(2026, 3, 11), QDate(2026, 3, 11));
    QApplication::processEvents();
    QSignalSpy picks(grid, &MonthGrid::picked);
    const auto click = [this](int row, int column) {
        const auto cell = grid->visualRect(grid->model()->index(row, column));
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
    };
    click(0, 0);
    EXPECT_EQ(picks.size(), 0);
    click(2, 3);
    ASSERT_EQ(picks.size(), 1);
    EXPECT_EQ(picks[0][0].toDate(), QDate(2026, 3, 18));
}

TEST_F(ComponentsMonth, DaysAreReadOutWhole)
{
    MonthModel month;
    month.setDates(QDate(2026, 3, 12), {}, {});
    EXPECT_EQ(month.indexOf(QDate(2026, 3, 12)).data(Qt::AccessibleTextRole), u"March 12, 2026"_s);
    EXPECT_EQ(month.headerData(0, Qt::Horizontal, Qt::AccessibleTextRole), u"Sunday"_s);
}

struct MonthRow
{
    std::string name;
    QDate month;
    int weeks;
    int firstColumn;
};

class MonthShape : public testing::TestWithParam<MonthRow>
{ };

TEST_P(MonthShape, HoldsEveryDayOnce)
{
    MonthModel model;
    model.setDates(GetParam().month, {}, {});
    EXPECT_EQ(model.rowCount(), GetParam().weeks);
    EXPECT_EQ(model.indexOf(GetParam().month).column(), GetParam().firstColumn);
    for (int day = 0; day < GetParam().month.daysInMonth(); ++day) {
        const auto date = GetParam().month.addDays(day);
        EXPECT_EQ(model.dateAt(model.indexOf(date)), date);
    }
    EXPECT_FALSE(model.indexOf(GetParam().month.addDays(-1)).isValid());
}

INSTANTIATE_TEST_SUITE_P(Months, MonthShape,
    testing::Values(MonthRow{"BeginsOnSunday", QDate(2026, 3, 1), 5, 0},
        MonthRow{"FourWeeks", QDate(2026, 2, 1), 4, 0}, MonthRow{"SixWeeks", QDate(2026, 8, 1), 6, 6},
        MonthRow{"LeapFebruary", QDate(2028, 2, 1), 5, 2}),
    ByName());
