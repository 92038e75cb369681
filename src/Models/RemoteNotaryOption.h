#pragma once

#include "JSONObject.h"

/// A notary who can be chosen or managed.
struct RemoteNotaryOption
{
    qint64 id = 0;
    std::optional<qint64> userId;
    QString name;
    QString email;
    QString phone;
    QString state;
    QString county;
    QString commissionNumber;
    QString commissionExpirationDate;
    QString billingStatus;
    bool active = false;
    JSONObject raw;

    static RemoteNotaryOption fromRaw(const JSONObject& raw);

    /// Same id, e-mail, billing status and activity; the other fields are not compared.
    friend bool operator==(const RemoteNotaryOption& a, const RemoteNotaryOption& b);
};
