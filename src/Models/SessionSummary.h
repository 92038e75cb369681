#pragma once

#include "JSONObject.h"

/// One remote notary session as the bridge describes it. Every displayed value is derived from the raw
/// object.
struct SessionSummary
{
    qint64 id = 0;
    JSONObject raw;

    /// The status word as received; "requested" when there is none.
    QString status() const;
    /// The reference people quote: "reference_id", else the raw "id", else empty.
    QString reference() const;
    bool canCancel() const;
    /// The server's own date and time texts, unparsed; "Date pending" when it gave none.
    QString displayDateTime() const;
    QList<QString> signerNames() const;

    /// Whether a list row shows the same state of the same session, not whether all contents are equal.
    friend bool operator==(const SessionSummary& a, const SessionSummary& b);
};
