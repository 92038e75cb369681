#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

/// Ends the program as soon as a top-level window has painted its first frame.
class FirstPaint : public QObject
{
public:
    FirstPaint() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* widget = qobject_cast<QWidget*>(watched);
        // The expose paints synchronously; what is posted now runs after the frame is on its way.
        if (event->type() == QEvent::Paint && widget && widget->isWindow())
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        return false;
    }
};
