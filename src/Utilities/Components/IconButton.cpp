#include "IconButton.h"

#include "Accessibility.h"
#include "FocusRing.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QKeyEvent>
#include <QPainter>

IconButton::IconButton(const QString& title, const QString& systemImage, int edge, QWidget* parent)
    : QAbstractButton(parent), symbol_(systemImage), edge_(edge)
{
    Accessibility::setRole(this, QAccessible::Button);
    setAccessibleName(title);
    setToolTip(PlainText::toolTip(title));
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    FocusRing::attach(this, Radius::smallButton);
}

QSize IconButton::sizeHint() const
{
    return {Height::small(), Height::small()};
}

void IconButton::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn)
        QAbstractButton::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        click();
}

void IconButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isEnabled() && (underMouse() || isDown()))
        Paint::roundedRect(painter, rect(), Radius::smallButton,
            Palette::color(isDown() ? Brand::paleBlue : Brand::softBlue));
    const auto edge = Type::scaled(edge_);
    const QRectF box((width() - edge) / 2.0, (height() - edge) / 2.0, edge, edge);
    Symbols::paint(painter, box, symbol_, Palette::color(isEnabled() ? Brand::steel : Brand::muted));
}
