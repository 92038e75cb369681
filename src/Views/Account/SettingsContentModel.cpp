#include "Account/SettingsContentModel.h"

QList<AppAppearanceMode> SettingsContentModel::appearanceChoices()
{
    return {AppAppearanceMode::light, AppAppearanceMode::dark, AppAppearanceMode::system};
}
