#include "Account/SettingsContentModel.h"

QList<AppAppearanceMode> SettingsContentModel::appearanceChoices()
{
    return {AppAppearanceMode::light, AppAppearanceMode::dark, AppAppearanceMode::system};
}

void SettingsContentModel::contactSupport()
{
    context().systemOpen.composeMail(context().backend.config.supportEmail);
}

void SettingsContentModel::visitWebsite()
{
    context().systemOpen.openWebsite(context().backend.config.websiteURL);
}
