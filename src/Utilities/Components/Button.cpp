#include "Button.h"

#include "Accessibility.h"
#include "ArcAnimation.h"
#include "FocusRing.h"
#include "Paint.h"
#include "PlainText.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

using namespace Qt::StringLiterals;

/// Of a button whose title takes several lines, in pixels of the design.
static constexpr int narrowest = 88;

struct Button::Metrics
{
    int height;
    int padding;
    int icon;
    int gap;
    int radius;
    Type::Style text;
};

Button::Button(const QString& title, const QString& systemImage, QWidget* parent)
    : QPushButton(parent), symbol_(systemImage), arc_(new ArcAnimation(this))
{
    Accessibility::setRole(this, QAccessible::Button);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setTitle(title);
    attachFocusRing();
}

Button::Metrics Button::metrics() const
{
    switch (size_) {
    case Size::small:
        return {Height::small(), 10, IconSize::chevron(), 6, Radius::smallButton, Type::group};
    case Size::large:
        return {Height::large(), 20, IconSize::button(), 8, Radius::block, Type::sub};
    case Size::regular:
        break;
    }
    return {Height::control(), 16, IconSize::button(), 8, Radius::control, Type::strong};
}

int Button::padding() const
{
    return metrics().padding;
}

void Button::attachFocusRing()
{
    FocusRing::attach(this, metrics().radius);
}

void Button::setTitle(const QString& title)
{
    title_ = title;
    auto text = title;
    setText(text.replace(u'&', u"&&"_s));
    setAccessibleName(title);
    updateGeometry();
    update();
}

void Button::setSystemImage(const QString& symbol)
{
    symbol_ = symbol;
    updateGeometry();
    update();
}

void Button::setButtonSize(Size size)
{
    size_ = size;
    attachFocusRing();
    updateGeometry();
    update();
}

void Button::setWraps(bool wraps)
{
    wraps_ = wraps;
    if (wraps)
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Minimum);
    else
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    updateGeometry();
}

void Button::setLoading(bool loading)
{
    if (loading == loading_)
        return;
    loading_ = loading;
    setDown(false);
    // Also a press by an assistive technology or by code must reach nobody.
    blockSignals(loading);
    Accessibility::setBusy(this, loading);
    arc_->setTurning(loading);
    updateGeometry();
    update();
}

int Button::symbolWidth() const
{
    if (symbol_.isEmpty() && !loading_)
        return 0;
    const auto look = metrics();
    return title_.isEmpty() ? look.icon : look.icon + look.gap;
}

int Button::contentWidth() const
{
    return symbolWidth() + PlainText::width(title_, metrics().text);
}

bool Button::isWrapped() const
{
    return wraps_ && width() < sizeHint().width();
}

PlainText::Paragraph Button::titleLines(int width) const
{
    return {title_, metrics().text, qMax(0, width - 2 * (padding() + 1) - symbolWidth())};
}

QSize Button::sizeHint() const
{
    return {contentWidth() + 2 * (padding() + 1), metrics().height};
}

QSize Button::minimumSizeHint() const
{
    const QSize whole = sizeHint();
    return wraps_ ? QSize(qMin(whole.width(), Type::scaled(narrowest)), whole.height()) : whole;
}

int Button::heightForWidth(int width) const
{
    const auto look = metrics();
    return look.height + titleLines(width).height() - Type::lineHeight(look.text);
}

bool Button::event(QEvent* event)
{
    if (loading_) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            event->accept();
            return true;
        default:
            break;
        }
    }
    const bool isCutOff = !wraps_ && width() < sizeHint().width();
    if (event->type() == QEvent::ToolTip && isCutOff && toolTip().isEmpty()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), PlainText::toolTip(title_), this);
        return true;
    }
    return QPushButton::event(event);
}

void Button::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn && !(loading_ && event->key() == Qt::Key_Space))
        return QPushButton::keyPressEvent(event);
    if (!event->isAutoRepeat())
        click();
}

void Button::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto look = metrics();
    const auto paints = colors();
    Paint::roundedRect(painter, rect(), look.radius, paints.fill, paints.edge);
    const int wanted = isWrapped() ? symbolWidth() + titleLines(width()).width() : contentWidth();
    const int content = qMin(wanted, width() - 2 * (padding() + 1));
    QRectF box((width() - content) / 2.0, 0, content, height());
    if (loading_ || !symbol_.isEmpty()) {
        QRectF icon(box.left(), (height() - look.icon) / 2.0, look.icon, look.icon);
        if (isRightToLeft())
            icon.moveRight(box.right());
        if (loading_)
            Paint::arc(painter, icon, paints.symbol, arc_->degrees());
        else
            Symbols::paint(painter, icon, symbol_, paints.symbol);
        if (isRightToLeft())
            box.setRight(icon.left() - look.gap);
        else
            box.setLeft(icon.right() + look.gap);
    }
    paintTitle(painter, box, paints.text);
}

void Button::paintTitle(QPainter& painter, const QRectF& box, const QColor& color) const
{
    if (!isWrapped())
        return PlainText::draw(painter, box, title_, metrics().text, color);
    const PlainText::Paragraph lines = titleLines(width());
    const double above = (box.height() - lines.height()) / 2;
    lines.draw(painter, box.adjusted(0, above, 0, 0), color, Qt::AlignHCenter);
}
