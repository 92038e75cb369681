#include "Shell/ContentPane.h"

#include "Paint.h"
#include "Palette.h"
#include "PaneKeys.h"

#include <QPainter>
#include <QStyle>

ContentPane::ContentPane(QWidget* parent) : QWidget(parent) { }

/// The focus goes from one screen to the other and touches nothing between them, which would be told.
void ContentPane::setScreen(QWidget* screen)
{
    QWidget* before = std::exchange(screen_, screen);
    screen_->setParent(this);
    placeScreen();
    screen_->show();
    if (!before)
        return;
    if (const auto focus = PaneKeys::focusWithin(before))
        PaneKeys::enter(screen_, *focus);
    before->hide();
    before->deleteLater();
}

void ContentPane::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Palette::color(Brand::panel));
    // The line lies in the middle of its pixels; only above and before the content it is on screen.
    const bool mirrored = isRightToLeft();
    const QRectF area = QRectF(rect()).adjusted(mirrored ? -1 : 0.5, 0.5, mirrored ? -0.5 : 1, 1);
    const QPainterPath content = Paint::leadingCorner(area, Radius::card, layoutDirection());
    painter.fillPath(content, Palette::gradient(rect()));
    painter.strokePath(content, Palette::color(Brand::line));
}

void ContentPane::resizeEvent(QResizeEvent*)
{
    placeScreen();
}

void ContentPane::placeScreen()
{
    if (screen_)
        screen_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(1, 1, 0, 0)));
}
