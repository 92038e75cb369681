#pragma once

#include "Button.h"

/// The emphasised action of a form or a page.
class PrimaryButton : public Button
{
    Q_OBJECT

public:
    explicit PrimaryButton(const QString& title, const QString& systemImage = {}, QWidget* parent = nullptr)
        : Button(title, systemImage, parent)
    { }

protected:
    Colors colors() const override;
};
