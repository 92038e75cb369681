#include "MonthGrid.h"

#include "MonthModel.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

constexpr int columns = 7;

int cellEdge()
{
    return Type::scaled(32);
}
int dayWidth()
{
    return Type::scaled(36);
}
int weekHeight()
{
    return Type::scaled(34);
}

class DayDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const auto day = index.data().toString();
        if (day.isEmpty())
            return;
        QRectF box(0, 0, cellEdge(), cellEdge());
        box.moveCenter(QRectF(option.rect).center());
        const bool chosen = index.data(MonthModel::ChosenRole).toBool();
        const bool allowed = option.state & QStyle::State_Enabled;
        const bool focused = option.state & QStyle::State_HasFocus;
        auto text = allowed ? Brand::ink : Brand::muted;
        if (chosen) {
            text = Brand::card;
            Paint::roundedRect(*painter, box, Radius::control, Palette::color(Brand::blue));
        } else if (allowed && (option.state & QStyle::State_MouseOver || focused)) {
            Paint::roundedRect(*painter, box, Radius::control, Palette::color(Brand::softBlue));
        }
        if (index.data(MonthModel::TodayRole).toBool() || (focused && !chosen))
            Paint::roundedRect(
                *painter, box, Radius::control, Qt::NoBrush, Palette::color(Brand::blue), focused ? 2 : 1);
        PlainText::draw(
            *painter, box, day, chosen ? Type::strong : Type::body, Palette::color(text), Qt::AlignCenter);
    }
};

/// The initials of the days of the week.
class DayNames : public QHeaderView
{
public:
    explicit DayNames(QWidget* parent) : QHeaderView(Qt::Horizontal, parent)
    {
        setSectionResizeMode(Fixed);
        setMinimumSectionSize(0);
        setDefaultSectionSize(dayWidth());
        setFixedHeight(weekHeight());
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(viewport());
        for (int section = 0; section < count(); ++section) {
            const QRect box(sectionViewportPosition(section), 0, sectionSize(section), height());
            PlainText::draw(painter, box, model()->headerData(section, Qt::Horizontal).toString(),
                Type::caption, Palette::color(Brand::steel), Qt::AlignCenter);
        }
    }
};

} // namespace

MonthGrid::MonthGrid(QWidget* parent) : QTableView(parent), days_(new MonthModel(this))
{
    setAccessibleName(u"Days"_s);
    setHorizontalHeader(new DayNames(this));
    setModel(days_);
    setItemDelegate(new DayDelegate(this));
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(0);
    verticalHeader()->setDefaultSectionSize(weekHeight());
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setSelectionMode(NoSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    setMouseTracking(true);
    connect(this, &QAbstractItemView::clicked, this, &MonthGrid::pick);
}

QSize MonthGrid::sizeHint() const
{
    return {columns * dayWidth(), (days_->rowCount() + 1) * weekHeight()};
}

void MonthGrid::setDates(const QDate& chosen, const QDate& earliest, const QDate& today)
{
    days_->setDates(chosen, earliest, today);
    setCurrentIndex(days_->indexOf(chosen));
    updateGeometry();
    emit monthChanged();
}

void MonthGrid::showMonthOf(const QDate& date)
{
    days_->setMonthOf(date);
    updateGeometry();
    emit monthChanged();
}

QDate MonthGrid::month() const
{
    return days_->month();
}

QDate MonthGrid::earliest() const
{
    return days_->earliest();
}

QDate MonthGrid::current() const
{
    return days_->dateAt(currentIndex());
}

void MonthGrid::moveTo(const QDate& date)
{
    const auto allowed = qMax(date, days_->earliest());
    if (!days_->indexOf(allowed).isValid())
        showMonthOf(allowed);
    setCurrentIndex(days_->indexOf(allowed));
}

void MonthGrid::pick(const QModelIndex& index)
{
    const auto date = days_->dateAt(index);
    if (days_->isAllowed(date))
        emit picked(date);
}

void MonthGrid::keyPressEvent(QKeyEvent* event)
{
    const auto from = current().isValid() ? current() : month();
    const int forward = isRightToLeft() ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        return moveTo(from.addDays(-forward));
    case Qt::Key_Right:
        return moveTo(from.addDays(forward));
    case Qt::Key_Up:
        return moveTo(from.addDays(-columns));
    case Qt::Key_Down:
        return moveTo(from.addDays(columns));
    case Qt::Key_PageUp:
        return moveTo(from.addMonths(-1));
    case Qt::Key_PageDown:
        return moveTo(from.addMonths(1));
    case Qt::Key_Home:
        return moveTo(month());
    case Qt::Key_End:
        return moveTo(month().addDays(month().daysInMonth() - 1));
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return pick(currentIndex());
    default:
        event->ignore();
    }
}
