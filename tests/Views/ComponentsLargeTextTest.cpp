#include "ComponentsTest.h"

#include "Components/FieldGrid.h"
#include "Components/PrimaryButton.h"
#include "Components/RowList.h"
#include "Components/SecondaryButton.h"
#include "Components/Switch.h"
#include "Components/SymbolLine.h"
#include "Components/TextField.h"
#include "Spacing.h"

#include <QStringListModel>

using namespace Qt::StringLiterals;

namespace {

/// Components on the desktop of somebody who reads in twice the text size.
class ComponentsLargeText : public ComponentsTest
{
protected:
    ComponentsLargeText() { Type::followDesktop(26); }
    ~ComponentsLargeText() override { Type::followDesktop(13); }
};

/// What a list of sessions shows: a name, a time, a status.
ListRow session(const QString& name, const QString& status)
{
    ListRow row;
    row.title = name;
    row.lines = QStringList{u"2026-11-30 3:45 PM"_s};
    row.pill = status;
    return row;
}

} // namespace

TEST_F(ComponentsLargeText, AButtonTakesMoreLinesWhereItMay)
{
    auto* whole = new SecondaryButton(u"Delete"_s, u"trash"_s);
    auto* wrapping = new PrimaryButton(u"Save Admin Changes"_s, u"checkmark.circle"_s);
    wrapping->setWraps(true);
    show({whole, wrapping});
    static_cast<QVBoxLayout*>(window.layout())->addStretch();
    window.layout()->activate();
    EXPECT_FALSE(whole->hasHeightForWidth());
    const QSize hint = wrapping->sizeHint();
    EXPECT_EQ(wrapping->size(), hint) << "there is room for all of it";
    EXPECT_EQ(wrapping->heightForWidth(hint.width()), Height::control());

    const int narrow = hint.width() * 3 / 4;
    EXPECT_EQ(wrapping->heightForWidth(narrow), Height::control() + Type::lineHeight(Type::strong));
    window.resize(narrow + 40, 640);
    window.layout()->activate();
    EXPECT_EQ(wrapping->width(), narrow);
    EXPECT_GE(wrapping->height(), wrapping->heightForWidth(narrow));
}

TEST_F(ComponentsLargeText, TheLinesOfAButtonLookDifferentFromOne)
{
    auto* button = new PrimaryButton(u"Save Admin"_s);
    button->setWraps(true);
    auto* longer = new PrimaryButton(u"Save Admin Changes"_s);
    longer->setWraps(true);
    show({button, longer});
    const QSize size(button->sizeHint().width(), longer->heightForWidth(button->sizeHint().width()));
    button->setFixedSize(size);
    longer->setFixedSize(size);
    EXPECT_NE(button->grab().toImage(), longer->grab().toImage()) << "the second line is painted";
}

TEST_F(ComponentsLargeText, ASwitchTakesMoreLinesForItsLabel)
{
    auto* control = shown(new Switch(u"Witness Required"_s));
    EXPECT_EQ(control->heightForWidth(control->sizeHint().width()), Height::control());
    EXPECT_EQ(control->heightForWidth(control->sizeHint().width() - 20), 2 * Type::lineHeight(Type::label));
    control->setLabelVisible(false);
    EXPECT_FALSE(control->hasHeightForWidth()) << "there is nothing to break";
}

TEST_F(ComponentsLargeText, AFactIsNeverCutOff)
{
    auto* line = shown(new SymbolLine(u"envelope.fill"_s, u"priya.raman@example.com"_s));
    const int whole = line->sizeHint().width();
    EXPECT_EQ(line->heightForWidth(whole), Type::lineHeight(Type::body));
    EXPECT_EQ(line->heightForWidth(whole * 2 / 3), 2 * Type::lineHeight(Type::body));
}

TEST_F(ComponentsLargeText, AnAddressIsBrokenBehindItsSign)
{
    const QString address = u"priya.raman@example.com"_s;
    const int name = PlainText::width(u"priya.raman@"_s, Type::body);
    const PlainText::Paragraph lines(address, Type::body, PlainText::width(address, Type::body) - 10);
    EXPECT_LE(lines.width(), name + 1);
    EXPECT_EQ(lines.height(), 2 * Type::lineHeight(Type::body));
    const PlainText::Paragraph line(address, Type::body, -1);
    EXPECT_EQ(line.width(), PlainText::width(address, Type::body)) << "it is as wide as ever";
}

TEST_F(ComponentsLargeText, FieldsStandBelowOneAnotherWhereTheirCaptionsWouldBeCutOff)
{
    auto* grid = new FieldGrid;
    auto* first = new TextField(u"Confirmed Date"_s);
    auto* second = new TextField(u"Witness Name / Notes"_s);
    grid->add(first, FieldGrid::half, FieldGrid::half);
    grid->add(second, FieldGrid::half, FieldGrid::half);
    shown(grid);
    const auto areBesideIn = [&](int width) {
        grid->setFixedWidth(width);
        QApplication::processEvents();
        return first->y() == second->y();
    };
    EXPECT_TRUE(areBesideIn(700));
    EXPECT_FALSE(areBesideIn(600));
}

TEST_F(ComponentsLargeText, ACaptionTakesMoreLinesOnceItsFieldStandsAlone)
{
    auto* grid = new FieldGrid;
    auto* field = new TextField(u"Witness Name / Notes"_s);
    grid->add(field, FieldGrid::whole, FieldGrid::whole);
    shown(grid);
    const auto heightIn = [&](int width) {
        grid->setFixedWidth(width);
        QApplication::processEvents();
        return field->height();
    };
    const int one = heightIn(700);
    EXPECT_EQ(heightIn(200), one + Type::lineHeight(Type::caption));
    EXPECT_EQ(heightIn(700), one);
}

TEST_F(ComponentsLargeText, AStatusStandsUnderTheTextsOfANarrowList)
{
    const auto read = [](const QModelIndex& index) {
        return session(u"Oscar Lindqvist"_s, index.row() == 0 ? u"rescheduled"_s : QString());
    };
    ListRowDelegate::Options shape;
    shape.textLines = 1;
    auto* list = new RowList(u"Sessions"_s, read, shape);
    QStringListModel model({u"with"_s, u"without"_s});
    list->setModel(&model);
    shown(list);
    const auto rowAt = [list, &model](int width, int row) {
        list->setFixedWidth(width);
        QApplication::processEvents();
        return list->visualRect(model.index(row, 0));
    };
    const int texts = Type::lineHeight(Type::small) + 2 * shape.padding + shape.gap;
    EXPECT_EQ(rowAt(700, 0).height(), texts + Height::pill());
    EXPECT_GT(rowAt(350, 0).height(), texts + Type::lineHeight(Type::strong) + Height::pill());
    EXPECT_EQ(rowAt(350, 1).height(), rowAt(350, 0).height()) << "every row is equally high";

    const QImage shown = list->viewport()->grab().toImage();
    const auto title = [&](int row) {
        const QRect place = rowAt(350, row);
        return shown.copy(place.adjusted(0, 0, 0, Type::lineHeight(Type::strong) - place.height()));
    };
    EXPECT_EQ(title(0), title(1)) << "no status takes room from the name";
}
