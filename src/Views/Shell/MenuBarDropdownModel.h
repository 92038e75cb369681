#pragma once

#include "Screen/ScreenContext.h"

/// The menu of the program's item in the desktop's status bar.
class MenuBarDropdownModel
{
public:
    /// What lies outside the menu's own reach.
    struct Shell
    {
        std::function<void()> openMainWindow; ///< opens the main window or brings it forward
        std::function<void()> quit;
    };

    MenuBarDropdownModel(const ScreenContext& context, Shell shell)
        : context_(context), shell_(std::move(shell))
    { }

    /// One line of the menu. Without an action it is text, or a separator when it has no title either.
    struct Item
    {
        QString title;
        QString systemImage;
        std::function<void()> action;

        bool isSeparator() const { return title.isEmpty(); }
        bool isText() const { return !isSeparator() && !action; }
    };

    /// The items for whoever is signed in now.
    QList<Item> items() const;

    /// Shows the window as it is.
    void comeForward() const { shell_.openMainWindow(); }

private:
    Item opening(const QString& title, const QString& systemImage, AppSection section) const;
    void appendHeader(QList<Item>& items) const;
    void appendWorkspaces(QList<Item>& items) const;
    void open(AppSection section) const;

    ScreenContext context_;
    Shell shell_;
};
