#pragma once

#include "TextField.h"

/// A field for a secret, which it conceals on screen and from assistive technology.
class SecureField : public TextField
{
    Q_OBJECT

public:
    explicit SecureField(const QString& caption, const QString& placeholder = {}, QWidget* parent = nullptr);
};
