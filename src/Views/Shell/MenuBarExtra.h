#pragma once

#include "Shell/MenuBarDropdownModel.h"

#include <QMenu>
#include <QSystemTrayIcon>

/// The program's item in the desktop's status bar, with its menu. Where the desktop draws the menu and keeps
/// a click for the program, that brings the window forward; elsewhere every click opens the menu.
class MenuBarExtra : public QObject
{
    Q_OBJECT

public:
    MenuBarExtra(const ScreenContext& context, MenuBarDropdownModel model);

    QMenu& menu() { return menu_; }
    QSystemTrayIcon& item() { return item_; }

private:
    bool isDrawnByDesktop() { return menu_.platformMenu() != nullptr; }
    void showAudience();
    void rebuild();
    void activate(QSystemTrayIcon::ActivationReason reason);

    MenuBarDropdownModel model_;
    QMenu menu_;
    QStringList shown_; ///< what the menu's items say
    QSystemTrayIcon item_;
    QPropertyNotifier onUser_;
    QPropertyNotifier onRole_;
};
