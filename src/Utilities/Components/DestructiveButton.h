#pragma once

#include "Button.h"

/// An action that deletes or calls off.
class DestructiveButton : public Button
{
    Q_OBJECT

public:
    explicit DestructiveButton(
        const QString& title, const QString& systemImage = {}, QWidget* parent = nullptr)
        : Button(title, systemImage, parent)
    { }

protected:
    Colors colors() const override;
};
