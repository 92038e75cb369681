#include "Shell/ContentPane.h"

#include "Palette.h"
#include "Spacing.h"

#include <QPainter>
#include <QPainterPath>

ContentPane::ContentPane(QWidget* parent) : QWidget(parent) { }

void ContentPane::setScreen(QWidget* screen)
{
    if (screen_) {
        screen_->hide();
        screen_->deleteLater();
    }
    screen_ = screen;
    screen_->setParent(this);
    placeScreen();
    screen_->show();
}

/// The outline of the pane: a line above and before the content, round where they meet.
static QPainterPath outline(const QRectF& area)
{
    const QRectF corner(area.left() + 0.5, area.top() + 0.5, 2 * Radius::card, 2 * Radius::card);
    QPainterPath path(QPointF(corner.left(), area.bottom() + 1));
    path.lineTo(corner.left(), corner.center().y());
    path.arcTo(corner, 180, -90);
    path.lineTo(area.right() + 1, corner.top());
    return path;
}

void ContentPane::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Palette::color(Brand::panel));
    QPainterPath content = outline(rect());
    content.lineTo(rect().right() + 1, rect().bottom() + 1);
    painter.fillPath(content, Palette::gradient(rect()));
    painter.strokePath(outline(rect()), Palette::color(Brand::line));
}

void ContentPane::resizeEvent(QResizeEvent*)
{
    placeScreen();
}

void ContentPane::placeScreen()
{
    if (screen_)
        screen_->setGeometry(rect().adjusted(1, 1, 0, 0));
}
