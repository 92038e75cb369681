#include "EventLoop.h"

#include "Worker.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThreadPool>

void settle()
{
    QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    bool didSomething = true;
    while (didSomething) {
        QThreadPool::globalInstance()->waitForDone();
        diskPool().waitForDone();
        QCoreApplication::sendPostedEvents();
        // Without a running loop nobody else carries out a deleteLater().
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        didSomething = dispatcher->processEvents(QEventLoop::AllEvents);
    }
}
