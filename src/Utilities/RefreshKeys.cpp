#include "RefreshKeys.h"

#include <QShortcut>
#include <QWidget>

void onRefreshKeys(QWidget* screen, std::function<void()> refresh)
{
    for (const QKeySequence& keys : {QKeySequence(Qt::Key_F5), QKeySequence(Qt::CTRL | Qt::Key_R)})
        QObject::connect(new QShortcut(keys, screen), &QShortcut::activated, screen, refresh);
}
