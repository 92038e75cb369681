#include "AppSection.h"

using namespace Qt::StringLiterals;

namespace {

struct Row
{
    AppSection section;
    QLatin1StringView rawValue;
    QLatin1StringView title;
    QLatin1StringView systemImage;
    std::optional<AppRole> requiredRole;
};

// Only the business dashboard is named by its bare role; people know it so.
constexpr std::array rows{
    Row{AppSection::dashboard, "dashboard"_L1, "Dashboard"_L1, "rectangle.grid.2x2.fill"_L1, {}},
    Row{AppSection::book, "book"_L1, "Book Remote Notary"_L1, "calendar.badge.plus"_L1, {}},
    Row{AppSection::sessions, "sessions"_L1, "Sessions"_L1, "doc.text.magnifyingglass"_L1, {}},
    Row{AppSection::businessDashboard, "businessDashboard"_L1, "Business"_L1, "building.2.fill"_L1,
        AppRole::business},
    Row{AppSection::notaryDashboard, "notaryDashboard"_L1, "Notary Dashboard"_L1, "checkmark.seal.fill"_L1,
        AppRole::notary},
    Row{AppSection::adminDashboard, "adminDashboard"_L1, "Admin Dashboard"_L1,
        "gauge.with.dots.needle.bottom.50percent"_L1, AppRole::admin},
    Row{AppSection::adminRecords, "adminRecords"_L1, "Records"_L1, "tray.full.fill"_L1, AppRole::admin},
    Row{AppSection::adminUsers, "adminUsers"_L1, "Users"_L1, "person.3.fill"_L1, AppRole::admin},
    Row{AppSection::adminNotaries, "adminNotaries"_L1, "Notaries"_L1, "person.badge.shield.checkmark.fill"_L1,
        AppRole::admin},
    Row{AppSection::settings, "settings"_L1, "Settings"_L1, "gearshape.fill"_L1, {}},
};
static_assert(rows.size() == allAppSections.size());

const Row& row(AppSection section)
{
    return rows.at(static_cast<size_t>(section));
}

} // namespace

QString rawValue(AppSection section)
{
    return row(section).rawValue;
}

QString title(AppSection section)
{
    return row(section).title;
}

QString systemImage(AppSection section)
{
    return row(section).systemImage;
}

std::optional<AppSection> appSection(const QString& rawValue)
{
    for (const Row& row : rows) {
        if (row.rawValue == rawValue)
            return row.section;
    }
    return {};
}

std::optional<AppRole> requiredRole(AppSection section)
{
    return row(section).requiredRole;
}

QList<AppSection> roleSections(const QList<AppRole>& availableRoles)
{
    QList<AppSection> sections;
    for (const Row& row : rows) {
        if (row.requiredRole && availableRoles.contains(*row.requiredRole))
            sections.append(row.section);
    }
    return sections;
}
