#include "Shell/MenuBarDropdownModel.h"

using namespace Qt::StringLiterals;

/// Goes to the section directly: no announcement, since the window is opened right here.
void MenuBarDropdownModel::open(AppSection section) const
{
    context_.router.selectedSection = section;
    context_.router.selectedSessionId = std::nullopt;
    shell_.openMainWindow();
}

MenuBarDropdownModel::Item MenuBarDropdownModel::opening(
    const QString& title, const QString& systemImage, AppSection section) const
{
    return {title, systemImage, [menu = *this, section] { menu.open(section); }};
}

void MenuBarDropdownModel::appendHeader(QList<Item>& items) const
{
    const std::optional<AuthUser> user = context_.auth.user.value();
    if (!user) {
        items += {u"Quorvel"_s, {}, {}};
        items += {u"Remote Notary"_s, {}, {}};
        return;
    }
    const QString name = context_.auth.displayName();
    items += {name.isEmpty() ? user->email : name, {}, {}};
    items += {title(context_.auth.role()), {}, {}};
}

void MenuBarDropdownModel::appendWorkspaces(QList<Item>& items) const
{
    const QList<AppRole> roles = context_.auth.availableRoles();
    if (roles.contains(AppRole::admin)) {
        for (const AppSection section : {AppSection::adminDashboard, AppSection::adminRecords,
                 AppSection::adminUsers, AppSection::adminNotaries})
            items += opening(title(section), systemImage(section), section);
    }
    if (roles.contains(AppRole::notary))
        items += opening(u"Notary Dashboard"_s, u"checkmark.seal.fill"_s, AppSection::notaryDashboard);
    if (roles.contains(AppRole::business))
        items += opening(u"Business Dashboard"_s, u"building.2.fill"_s, AppSection::businessDashboard);
}

QList<MenuBarDropdownModel::Item> MenuBarDropdownModel::items() const
{
    const Item separator;
    QList<Item> items;
    appendHeader(items);
    items += separator;
    items += opening(u"Book Remote Notary"_s, u"calendar.badge.plus"_s, AppSection::book);
    items += opening(u"Sessions"_s, u"doc.text.magnifyingglass"_s, AppSection::sessions);
    items += separator;
    if (context_.auth.isSignedIn()) {
        appendWorkspaces(items);
        items += separator;
        items += opening(u"Profile & Settings"_s, u"gearshape.fill"_s, AppSection::settings);
        items += {u"Log Out"_s, u"rectangle.portrait.and.arrow.right"_s, [menu = *this] {
                      menu.context_.auth.leave();
                      menu.open(AppSection::dashboard);
                  }};
    } else {
        // Leads to the booking section on purpose: its gate shows the sign-in screen.
        items += opening(u"Login"_s, u"person.crop.circle"_s, AppSection::book);
    }
    items += separator;
    items += opening(u"Open App"_s, u"macwindow"_s, AppSection::dashboard);
    items += {u"Open Website"_s, u"safari"_s,
        [menu = *this] { menu.context_.systemOpen.openWebsite(menu.context_.backend.config.websiteURL); }};
    items += {u"Quit Quorvel"_s, u"power"_s, shell_.quit};
    return items;
}
