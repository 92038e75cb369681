#pragma once

#include "Screen/RowListModel.h"
#include "SessionSummary.h"

/// Whose session it is, as far as the bridge tells.
struct SessionPeople
{
    QString client;
    QString email;
};
SessionPeople sessionPeople(const SessionSummary& session);

/// Which notary is assigned, if any, and whether a witness is required, and who: for everybody who reads
/// about the session.
QString assignedNotaryLine(const SessionSummary& session);
QString witnessLine(const SessionSummary& session);

/// The texts of one session's row in the sessions list.
/// \param when  the session's displayDateTime(), which the caller has derived already
RowTexts sessionRow(const SessionSummary& session, const QString& when);
