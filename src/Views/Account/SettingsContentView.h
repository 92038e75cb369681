#pragma once

#include "Account/SettingsContentModel.h"

#include <QStackedWidget>

class Card;

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
    Card* makeAccountCard();
    Card* makePreferencesCard();
    QWidget* makeAppearance();
    Card* makeAboutCard();

    std::shared_ptr<SettingsContentModel> model_;
};
