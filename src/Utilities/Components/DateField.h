#pragma once

#include "DateEditor.h"

/// A field for a date.
class DateField : public DateEditor
{
    Q_OBJECT

public:
    using Value = QDate;

    explicit DateField(QWidget* parent = nullptr);

    QDate value() const { return date(); }
    void setValue(const QDate& date) { setDate(date); }
    /// Nothing earlier can be typed or picked.
    void setEarliest(const QDate& date) { setMinimumDate(date); }

signals:
    void valueChanged(const QDate& date);
};
