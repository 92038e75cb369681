#include "CalendarPopup.h"

#include "IconButton.h"
#include "Layouts.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainLabel.h"
#include "PlainText.h"
#include "Spacing.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QTableView>
#include <QTextCharFormat>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 12;
constexpr int cell = 32;
constexpr int cellsAcross = 7;
constexpr int rows = 7;
constexpr int columnStep = 35;
constexpr int rowStep = 34;

QLocale english()
{
    return {QLocale::English, QLocale::UnitedStates};
}

} // namespace

/// The grid of days, without the header that Qt puts above it.
class CalendarPopup::Days : public QCalendarWidget
{
public:
    Days()
    {
        setLocale(english());
        setFirstDayOfWeek(Qt::Sunday);
        setNavigationBarVisible(false);
        setVerticalHeaderFormat(NoVerticalHeader);
        setHorizontalHeaderFormat(SingleLetterDayNames);
        setFixedSize(Type::scaled(columnStep) * cellsAcross, Type::scaled(rowStep) * rows);
        QTextCharFormat names;
        names.setFont(Type::font(Type::caption));
        names.setForeground(Palette::color(Brand::steel));
        names.setBackground(Palette::color(Brand::card));
        setHeaderTextFormat(names);
        for (const auto day : {Qt::Saturday, Qt::Sunday})
            setWeekdayTextFormat(day, names);
        auto palette = this->palette();
        palette.setColor(QPalette::Base, Palette::color(Brand::card));
        palette.setColor(QPalette::AlternateBase, Palette::color(Brand::card));
        setPalette(palette);
        if (auto* view = findChild<QTableView*>()) {
            view->setFrameShape(QFrame::NoFrame);
            view->viewport()->setAttribute(Qt::WA_Hover);
            view->viewport()->setMouseTracking(true);
            view->viewport()->installEventFilter(this);
        }
    }

    void setToday(const QDate& today) { today_ = today; }
    bool showsMonthOf(const QDate& date) const
    {
        return date.month() == monthShown() && date.year() == yearShown();
    }

protected:
    void paintCell(QPainter* painter, const QRect& area, QDate date) const override
    {
        painter->fillRect(area, Palette::color(Brand::card));
        if (!showsMonthOf(date))
            return;
        QRectF box(0, 0, Type::scaled(cell), Type::scaled(cell));
        box.moveCenter(QRectF(area).center());
        const bool chosen = date == selectedDate();
        const bool allowed = date >= minimumDate() && date <= maximumDate();
        auto text = allowed ? Brand::ink : Brand::muted;
        if (chosen) {
            text = Brand::card;
            Paint::roundedRect(*painter, box, Radius::control, Palette::color(Brand::blue));
        } else if (date == today_) {
            Paint::roundedRect(*painter, box, Radius::control, Qt::transparent, Palette::color(Brand::blue));
        } else if (allowed && area.contains(pointer_)) {
            Paint::roundedRect(*painter, box, Radius::control, Palette::color(Brand::softBlue));
        }
        PlainText::draw(*painter, box, QString::number(date.day()), chosen ? Type::strong : Type::body,
            Palette::color(text), Qt::AlignCenter);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::MouseMove)
            pointAt(static_cast<QMouseEvent*>(event)->position().toPoint());
        else if (event->type() == QEvent::Leave)
            pointAt({-1, -1});
        return QCalendarWidget::eventFilter(watched, event);
    }

private:
    void pointAt(const QPoint& position)
    {
        pointer_ = position;
        updateCells();
    }

    QDate today_;
    QPoint pointer_{-1, -1};
};

CalendarPopup::CalendarPopup(QWidget* parent)
    : QFrame(parent), days_(new Days), month_(new PlainLabel({}, Type::strong)),
      previous_(new IconButton(u"Previous Month"_s, u"chevron.left"_s)),
      next_(new IconButton(u"Next Month"_s, u"chevron.right"_s))
{
    setAccessibleName(u"Calendar"_s);
    month_->setAlignment(Qt::AlignCenter);
    auto* header = Layouts::row(0, {previous_, month_, next_});
    header->setStretch(1, 1);
    auto* column = Layouts::column(4);
    column->addLayout(header);
    column->addWidget(days_);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSizeConstraint(QLayout::SetFixedSize);
    setLayout(column);
    setFocusProxy(days_);
    connect(previous_, &QAbstractButton::clicked, days_, &QCalendarWidget::showPreviousMonth);
    connect(next_, &QAbstractButton::clicked, days_, &QCalendarWidget::showNextMonth);
    connect(days_, &QCalendarWidget::currentPageChanged, this, &CalendarPopup::showMonth);
    connect(days_, &QCalendarWidget::clicked, this, &CalendarPopup::choose);
    connect(days_, &QCalendarWidget::activated, this, &CalendarPopup::choose);
}

QCalendarWidget* CalendarPopup::days() const
{
    return days_;
}

void CalendarPopup::setDates(const QDate& chosen, const QDate& earliest, const QDate& today)
{
    days_->setMinimumDate(earliest);
    days_->setSelectedDate(chosen);
    days_->setToday(today);
    showMonth();
}

void CalendarPopup::showMonth()
{
    const QDate first(days_->yearShown(), days_->monthShown(), 1);
    month_->setText(english().toString(first, u"MMMM yyyy"_s));
    previous_->setEnabled(first > days_->minimumDate());
}

void CalendarPopup::choose(const QDate& date)
{
    if (!days_->showsMonthOf(date))
        return;
    emit picked(date);
    if (isWindow())
        close();
}

void CalendarPopup::openBelow(QWidget* field)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    adjustSize();
    QRect place(field->mapToGlobal(QPoint(0, field->height() + 4)), size());
    const auto screen = field->screen()->availableGeometry();
    if (place.bottom() > screen.bottom())
        place.moveBottom(field->mapToGlobal(QPoint(0, -4)).y());
    if (place.right() > screen.right())
        place.moveRight(screen.right());
    move(place.topLeft());
    show();
    days_->setFocus(Qt::PopupFocusReason);
}

void CalendarPopup::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && isWindow())
        close();
    else
        QFrame::keyPressEvent(event);
}

void CalendarPopup::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Paint::roundedRect(
        painter, rect(), Radius::menu, Palette::color(Brand::card), Palette::color(Brand::fieldBorder));
}
