#pragma once

#include <QString>
#include <QUuid>

/// The one alert that a screen shows. Two alerts with the same texts are distinct, so that the second shows.
struct AlertMessage
{
    QUuid id = QUuid::createUuid();
    QString title;
    QString message;

    bool operator==(const AlertMessage& other) const { return id == other.id; }
};
