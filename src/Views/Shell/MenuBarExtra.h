#pragma once

#include "Shell/MenuBarDropdownModel.h"

#include <QMenu>
#include <QSystemTrayIcon>

/// The program's item in the desktop's status bar, with its menu.
class MenuBarExtra : public QObject
{
    Q_OBJECT

public:
    MenuBarExtra(const ScreenContext& context, MenuBarDropdownModel model);

    QMenu& menu() { return menu_; }

private:
    void rebuild();

    MenuBarDropdownModel model_;
    QMenu menu_;
    QSystemTrayIcon item_;
    QPropertyNotifier onUser_;
    QPropertyNotifier onRole_;
};
