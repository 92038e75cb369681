#include "AppAppearanceMode.h"

using namespace Qt::StringLiterals;

namespace {

struct Row
{
    AppAppearanceMode mode;
    QLatin1StringView rawValue;
    QLatin1StringView title;
};

constexpr std::array rows{
    Row{AppAppearanceMode::system, "system"_L1, "System"_L1},
    Row{AppAppearanceMode::light, "light"_L1, "Light"_L1},
    Row{AppAppearanceMode::dark, "dark"_L1, "Dark"_L1},
};
static_assert(rows.size() == allAppAppearanceModes.size());

const Row& row(AppAppearanceMode mode)
{
    return rows.at(static_cast<size_t>(mode));
}

} // namespace

QString rawValue(AppAppearanceMode mode)
{
    return row(mode).rawValue;
}

QString title(AppAppearanceMode mode)
{
    return row(mode).title;
}

std::optional<AppAppearanceMode> appAppearanceMode(const QString& rawValue)
{
    for (const Row& row : rows) {
        if (row.rawValue == rawValue)
            return row.mode;
    }
    return {};
}

bool isDark(AppAppearanceMode mode, bool systemIsDark)
{
    return mode == AppAppearanceMode::system ? systemIsDark : mode == AppAppearanceMode::dark;
}
