#pragma once

#include "JSONObject.h"

/// One record in the administration's list: a walk-in record or a remote session.
struct AdminRecordItem
{
    qint64 id = 0;
    JSONObject raw;

    /// "record_type", else "type", else "remote".
    QString recordType() const;
    /// Exactly "walkin"; letter case counts.
    bool isWalkIn() const;
    QString status() const;
    /// Where the record lives on the server, sent back with every change of it.
    QString source() const;
    QString displayDateTime() const;
    QList<QString> signerNames() const;

    friend bool operator==(const AdminRecordItem& a, const AdminRecordItem& b);
};
