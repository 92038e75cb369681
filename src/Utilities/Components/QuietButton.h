#pragma once

#include "Button.h"

/// A small action that is only a text, such as "View All"; with a symbol and no visible title, a small icon.
class QuietButton : public Button
{
    Q_OBJECT

public:
    /// Before and after the words, in pixels.
    static constexpr int roomAcross = 8;

    explicit QuietButton(const QString& title, const QString& systemImage = {}, QWidget* parent = nullptr);

protected:
    Colors colors() const override;
    int padding() const override;
};
