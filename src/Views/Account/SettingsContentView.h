#pragma once

#include "Account/SettingsContentModel.h"

#include <QStackedWidget>

/// The person's settings; a way to sign in while nobody is.
class SettingsContentView : public QStackedWidget
{
    Q_OBJECT

public:
    explicit SettingsContentView(std::shared_ptr<SettingsContentModel> model, QWidget* parent = nullptr);
    ~SettingsContentView() override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showUser(bool isSignedIn);
    QWidget* makeSignedOut();
    QWidget* makeSignedIn();
    QWidget* makeHeader();

    std::shared_ptr<SettingsContentModel> model_;
    class TextField* newPassword_ = nullptr;
};
