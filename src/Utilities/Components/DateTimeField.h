#pragma once

#include "DateEditor.h"

#include <QTimeZone>

/// A field for a date and a time of day. Outside it speaks in instants of local time; hours that the local
/// zone skips or repeats do it no harm.
class DateTimeField : public DateEditor
{
    Q_OBJECT

public:
    using Value = QDateTime;

    /// \param zone  whose clock the field shows
    explicit DateTimeField(const QTimeZone& zone = QTimeZone::systemTimeZone(), QWidget* parent = nullptr);

    QDateTime value() const;
    void setValue(const QDateTime& instant);
    /// Nothing earlier can be typed or picked.
    void setEarliest(const QDateTime& instant);

signals:
    void valueChanged(const QDateTime& instant);

private:
    QTimeZone zone_;
    QDateTime set_; ///< what setValue() was told; tells repeated hours apart
};
