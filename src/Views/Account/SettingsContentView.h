#pragma once

#include "Account/SettingsContentModel.h"

#include <QStackedWidget>

/// The person's settings; a way to sign in while nobody is.
class SettingsContentView : public QStackedWidget
{
    Q_OBJECT

public:
    explicit SettingsContentView(std::shared_ptr<SettingsContentModel> model, QWidget* parent = nullptr);

private:
    QWidget* makeSignedOut();
    QWidget* makeSignedIn();
    QWidget* makeHeader();
    QWidget* makeAccountCard();
    QWidget* makePreferencesCard();
    QWidget* makeAppearance();
    QWidget* makeAboutCard();

    std::shared_ptr<SettingsContentModel> model_;
};
