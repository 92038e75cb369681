#pragma once

#include "Surface.h"

class PlainLabel;

/// A figure with its label and symbol. Assistive technology reads it as one thing: title and value.
class MetricTile : public Surface
{
    Q_OBJECT

public:
    MetricTile(
        const QString& title, const QString& value, const QString& systemImage, QWidget* parent = nullptr);

    QString value() const;
    void setValue(const QString& value);
    /// A little less room before and after the texts.
    void setCompact(bool compact);

private:
    PlainLabel* value_;
};
