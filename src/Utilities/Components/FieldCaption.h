#pragma once

#include "PlainLabel.h"

/// The small caption above a form field.
class FieldCaption : public PlainLabel
{
    Q_OBJECT

public:
    explicit FieldCaption(const QString& text, QWidget* parent = nullptr)
        : PlainLabel(text, Type::caption, Brand::steel, parent)
    {
        setFit(Fit::elide);
        setMutedWhenDisabled(false);
    }
};
