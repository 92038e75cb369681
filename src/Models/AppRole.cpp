#include "AppRole.h"

using namespace Qt::StringLiterals;

namespace {

struct Row
{
    AppRole role;
    QLatin1StringView rawValue;
    QLatin1StringView title;
    QLatin1StringView systemImage;
};

constexpr std::array rows{
    Row{AppRole::client, "client"_L1, "Client"_L1, "person.fill"_L1},
    Row{AppRole::business, "business"_L1, "Business"_L1, "building.2.fill"_L1},
    Row{AppRole::notary, "notary"_L1, "Notary"_L1, "checkmark.seal.fill"_L1},
    Row{AppRole::admin, "admin"_L1, "Admin"_L1, "gearshape.fill"_L1},
};
static_assert(rows.size() == allAppRoles.size());

const Row& row(AppRole role)
{
    return rows.at(static_cast<size_t>(role));
}

} // namespace

QString rawValue(AppRole role)
{
    return row(role).rawValue;
}

QString title(AppRole role)
{
    return row(role).title;
}

QString systemImage(AppRole role)
{
    return row(role).systemImage;
}

std::optional<AppRole> appRole(const QString& rawValue)
{
    for (const Row& row : rows) {
        if (row.rawValue == rawValue)
            return row.role;
    }
    return {};
}
