#include "RoundedPopup.h"

#include "XServer.h"

#include <QApplication>
#include <QBitmap>
#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QWidget>

namespace {

constexpr char radiusProperty[] = "popupRadius";

/// Looks anew at every popup that comes up, since what puts windows together may come and go.
class CornerCutter : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show || event->type() == QEvent::Resize)
            shape(static_cast<QWidget*>(watched));
        return false;
    }

private:
    static void shape(QWidget* popup)
    {
        if (XServer::isComposited())
            popup->clearMask();
        else
            popup->setMask(RoundedPopup::cut(popup->size(), popup->property(radiusProperty).toInt()));
    }
};

CornerCutter* cornerCutter()
{
    static QPointer<CornerCutter> instance;
    if (!instance)
        instance = new CornerCutter(qApp);
    return instance;
}

} // namespace

void RoundedPopup::prepare(QWidget* popup, int radius)
{
    popup->setAttribute(Qt::WA_TranslucentBackground);
    popup->setProperty(radiusProperty, radius);
    popup->installEventFilter(cornerCutter());
}

QRegion RoundedPopup::cut(QSize size, int radius)
{
    if (size.isEmpty())
        return {};
    QBitmap shape(size);
    shape.clear();
    QPainter painter(&shape);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(QRect(QPoint(), size).adjusted(0, 0, -1, -1), radius, radius);
    painter.end();
    return {shape};
}
