#pragma once

#include <QList>
#include <QString>

#include <array>
#include <optional>

/// The account role in which the signed-in user is acting. The raw values are a storage and wire format.
enum class AppRole
{
    client,
    business,
    notary,
    admin
};

inline constexpr std::array allAppRoles{AppRole::client, AppRole::business, AppRole::notary, AppRole::admin};

QString rawValue(AppRole role);
/// The title as people read it, e.g. "Notary".
QString title(AppRole role);
/// The name of the role's symbol.
QString systemImage(AppRole role);
/// \returns nothing unless the text equals a raw value exactly, letter case included.
std::optional<AppRole> appRole(const QString& rawValue);
