#pragma once

#include "Button.h"

/// A plain action.
class SecondaryButton : public Button
{
    Q_OBJECT

public:
    explicit SecondaryButton(const QString& title, const QString& systemImage = {}, QWidget* parent = nullptr)
        : Button(title, systemImage, parent)
    { }

protected:
    Colors colors() const override;
};
