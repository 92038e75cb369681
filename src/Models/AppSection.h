#pragma once

#include "AppRole.h"

/// A navigable section of the main window.
enum class AppSection
{
    dashboard,
    book,
    sessions,
    businessDashboard,
    notaryDashboard,
    adminDashboard,
    adminRecords,
    adminUsers,
    adminNotaries,
    settings,
};

inline constexpr std::array allAppSections{AppSection::dashboard, AppSection::book, AppSection::sessions,
    AppSection::businessDashboard, AppSection::notaryDashboard, AppSection::adminDashboard,
    AppSection::adminRecords, AppSection::adminUsers, AppSection::adminNotaries, AppSection::settings};

QString rawValue(AppSection section);
QString title(AppSection section);
QString systemImage(AppSection section);
/// \returns nothing unless the text equals a raw value exactly.
std::optional<AppSection> appSection(const QString& rawValue);

/// The role without which the section stays closed; nothing for sections open to every signed-in user.
std::optional<AppRole> requiredRole(AppSection section);
/// The sections of the "Workspaces" group for a user who holds these roles, in their order.
QList<AppSection> roleSections(const QList<AppRole>& availableRoles);
