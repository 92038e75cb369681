#include "CalendarPopup.h"

#include "IconButton.h"
#include "Layouts.h"
#include "MonthGrid.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainLabel.h"
#include "RoundedPopup.h"
#include "Spacing.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

constexpr int across = 10;
constexpr int down = 14;
/// The header's buttons stand a little outside the days.
constexpr int headerOutset = 4;
constexpr int chevron = 14;
constexpr int roomToField = 4;

} // namespace

CalendarPopup::CalendarPopup(QWidget* parent)
    : QFrame(parent), month_(new PlainLabel({}, Type::strong)),
      previous_(new IconButton(u"Previous Month"_s, u"chevron.left"_s, chevron)),
      next_(new IconButton(u"Next Month"_s, u"chevron.right"_s, chevron)), days_(new MonthGrid)
{
    setAccessibleName(u"Calendar"_s);
    month_->setAlignment(Qt::AlignCenter);
    auto* header = Layouts::row(0, {previous_, month_, next_});
    header->setStretch(1, 1);
    auto* column = Layouts::column(4);
    column->addLayout(header);
    auto* body = Layouts::row(0, {days_});
    body->setContentsMargins(headerOutset, 0, headerOutset, 0);
    column->addLayout(body);
    column->setContentsMargins(across - headerOutset, down, across - headerOutset, down);
    column->setSizeConstraint(QLayout::SetFixedSize);
    setLayout(column);
    setFocusProxy(days_);
    connect(previous_, &QAbstractButton::clicked, this,
        [this] { days_->showMonthOf(days_->month().addMonths(-1)); });
    connect(
        next_, &QAbstractButton::clicked, this, [this] { days_->showMonthOf(days_->month().addMonths(1)); });
    connect(days_, &MonthGrid::monthChanged, this, &CalendarPopup::nameMonth);
    connect(days_, &MonthGrid::picked, this, [this](const QDate& date) {
        emit picked(date);
        if (isWindow())
            close();
    });
}

void CalendarPopup::setDates(const QDate& chosen, const QDate& earliest, const QDate& today)
{
    days_->setDates(chosen, earliest, today);
}

void CalendarPopup::nameMonth()
{
    month_->setText(QLocale(QLocale::English).toString(days_->month(), u"MMMM yyyy"_s));
    previous_->setEnabled(days_->month() > days_->earliest());
}

void CalendarPopup::openBelow(QWidget* field)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    RoundedPopup::prepare(this, Radius::menu);
    adjustSize();
    QRect place(field->mapToGlobal(QPoint(0, field->height() + roomToField)), size());
    const auto screen = field->screen()->availableGeometry();
    if (place.bottom() > screen.bottom())
        place.moveBottom(field->mapToGlobal(QPoint(0, -roomToField)).y());
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
