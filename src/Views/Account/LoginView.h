#pragma once

#include "Account/LoginModel.h"

#include <QWidget>

class ScrollPage;
class TextField;
class WelcomePanel;

/// Signing in and registering: the welcome panel on the left, the form on the right.
class LoginView : public QWidget
{
    Q_OBJECT

public:
    explicit LoginView(std::shared_ptr<LoginModel> model, QWidget* parent = nullptr);
    ~LoginView() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeForm();
    QWidget* makeRequester();
    QWidget* makeModeSwitch();
    QWidget* makeHeading();
    QWidget* makeFields();
    QWidget* makeSubmit();
    /// Runs `apply` with the mode now and whenever it changes.
    void followMode(std::function<void(bool isRegistering)> apply);
    void submit();
    /// In which filling in begins.
    TextField* firstField() const;
    void chooseMode(bool registering);
    void closeAlert();

    std::shared_ptr<LoginModel> model_;
    TextField* name_ = nullptr;
    TextField* email_ = nullptr;
    TextField* password_ = nullptr;
    WelcomePanel* welcome_;
    ScrollPage* form_;
    bool wasShown_ = false;
};
