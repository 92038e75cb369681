#include "Shell/MenuBarExtra.h"

#include "AppIcon.h"
#include "PlainText.h"
#include "Symbols.h"
#include "Type.h"

#include <QCursor>

using namespace Qt::StringLiterals;

/// Where this program draws its menu itself.
static constexpr int menuWidth = 264;

MenuBarExtra::MenuBarExtra(const ScreenContext& context, MenuBarDropdownModel model)
    : model_(std::move(model))
{
    onUser_ = context.auth.user.addNotifier([this] { showAudience(); });
    onRole_ = context.auth.activeRole.addNotifier([this] { showAudience(); });
    item_.setToolTip(u"Quorvel"_s);
    menu_.setWindowTitle(item_.toolTip()); // what a screen reader calls it
    menu_.setMinimumWidth(Type::scaled(menuWidth));
    item_.setContextMenu(&menu_);
    connect(&item_, &QSystemTrayIcon::activated, this, &MenuBarExtra::activate);
    // Only a desktop that draws the menu itself draws the item too.
    item_.setIcon(AppIcon::statusBar(isDrawnByDesktop()));
    showAudience();
    item_.show();
}

/// Menus read "&" as the mark of a mnemonic; names and titles mean the character. For a tray on the session
/// bus, which reads "_" so, Qt translates the first "&" alone.
static QString literal(const QString& text, bool isOnBus)
{
    QString line = PlainText::singleLine(text);
    if (!isOnBus)
        return line.replace(u'&', u"&&"_s);
    line.replace(u'_', u"__"_s);
    const qsizetype first = line.indexOf(u'&');
    return first < 0 ? line : line.insert(first, u'&');
}

void MenuBarExtra::activate(QSystemTrayIcon::ActivationReason reason)
{
    if (reason != QSystemTrayIcon::Trigger)
        return;
    if (isDrawnByDesktop())
        model_.comeForward();
    else
        menu_.popup(QCursor::pos());
}

/// The menu stays where nothing but a token is new: somebody may be about to choose from it.
void MenuBarExtra::showAudience()
{
    QStringList items;
    for (const MenuBarDropdownModel::Item& item : model_.items())
        items += item.title;
    if (shown_ != items) {
        shown_ = items;
        rebuild();
    }
}

void MenuBarExtra::rebuild()
{
    menu_.clear();
    bool isFirst = true;
    for (const MenuBarDropdownModel::Item& item : model_.items()) {
        if (item.isSeparator()) {
            menu_.addSeparator();
            continue;
        }
        QAction* action = menu_.addAction(literal(item.title, isDrawnByDesktop()));
        action->setEnabled(!item.isText());
        if (item.isText()) {
            action->setFont(Type::font(isFirst ? Type::strong : Type::small));
            isFirst = false;
            continue;
        }
        action->setIcon(Symbols::icon(item.systemImage));
        // Queued, because what an item does may rebuild this very menu.
        connect(action, &QAction::triggered, this, item.action, Qt::QueuedConnection);
    }
}
