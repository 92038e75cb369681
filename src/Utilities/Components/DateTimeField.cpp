#include "DateTimeField.h"

#include "WallClock.h"

DateTimeField::DateTimeField(const QTimeZone& zone, QWidget* parent)
    : DateEditor(Kind::dateAndTime, parent), zone_(zone)
{
    connect(this, &QDateTimeEdit::dateTimeChanged, this, [this] { emit valueChanged(value()); });
}

QDateTime DateTimeField::value() const
{
    if (set_.isValid() && WallClock::reading(set_, zone_) == dateTime())
        return set_;
    return WallClock::instant(dateTime(), zone_);
}

void DateTimeField::setValue(const QDateTime& instant)
{
    set_ = instant.toLocalTime();
    setDateTime(WallClock::reading(instant, zone_));
}

void DateTimeField::setEarliest(const QDateTime& instant)
{
    setMinimumDateTime(WallClock::reading(instant, zone_));
}
