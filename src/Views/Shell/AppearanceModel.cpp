#include "Shell/AppearanceModel.h"

using namespace Qt::StringLiterals;

const QString AppearanceModel::defaultsKey = u"appearanceMode"_s;

AppearanceModel::AppearanceModel(UserDefaults& defaults, const SystemAppearance& system)
    : defaults_(defaults), system_(system)
{
    const QString stored = defaults_.string(defaultsKey).value_or(QString());
    mode = appAppearanceMode(stored).value_or(AppAppearanceMode::system);
    update();
    connect(&system_, &SystemAppearance::changed, this, &AppearanceModel::update);
}

void AppearanceModel::choose(AppAppearanceMode chosen)
{
    mode = chosen;
    defaults_.setString(defaultsKey, rawValue(chosen));
    update();
}

void AppearanceModel::update()
{
    isDark = ::isDark(mode.value(), system_.isDark());
    hasHighContrast = system_.wantsHighContrast();
}
