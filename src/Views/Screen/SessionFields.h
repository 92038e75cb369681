#pragma once

#include "SessionSummary.h"

#include <QJsonObject>

/// What a notary or an admin can change about a session, as it stands in the fields: texts as typed.
struct SessionFields
{
    QString status;
    QString confirmedDate;
    QString confirmedTime;
    QString proposedFee;
    QString statusNote;
    qint64 selectedNotaryId = 0; ///< nobody below 1
    bool requiresWitness = false;
    QString witnessName;

    /// The fields as a session's record fills them.
    static SessionFields of(const SessionSummary& session);

    /// The body of a notary's update. The date and the time go out under two keys each.
    QJsonObject notaryUpdate() const;
    /// The body of an admin's changes, in the same manner. It names a notary only when one is chosen.
    QJsonObject adminChanges() const;
    /// Takes over what a notary's update of these fields has told the bridge.
    void takeNotaryUpdate(const SessionFields& sent);
    void takeAdminChanges(const SessionFields& sent);

    bool operator==(const SessionFields&) const = default;
};
