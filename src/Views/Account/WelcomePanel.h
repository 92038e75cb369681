#pragma once

#include "Components/ScrollPage.h"

/// What the program is for, beside the sign-in form. It scrolls where large text needs more room than there
/// is.
class WelcomePanel : public ScrollPage
{
    Q_OBJECT

public:
    explicit WelcomePanel(QWidget* parent = nullptr);

    enum class Length
    {
        full,
        compact, ///< less room around and between the parts
        brief, ///< the program's name alone
    };
    void setLength(Length length);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Length length_ = Length::full;
};
