#pragma once

#include <QWidget>

/// What the program is for, beside the sign-in form.
class WelcomePanel : public QWidget
{
    Q_OBJECT

public:
    explicit WelcomePanel(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
