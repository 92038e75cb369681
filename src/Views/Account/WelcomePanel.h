#pragma once

#include "Components/ScrollPage.h"

/// What the program is for, beside the sign-in form. It scrolls where large text needs more room than there
/// is.
class WelcomePanel : public ScrollPage
{
    Q_OBJECT

public:
    explicit WelcomePanel(QWidget* parent = nullptr);

    /// Less room around and between its parts.
    void setCompact(bool compact);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool compact_ = false;
};
