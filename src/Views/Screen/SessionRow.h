#pragma once

#include "Screen/RowListModel.h"
#include "SessionSummary.h"

/// The texts of one session's row in the sessions list.
/// \param when  the session's displayDateTime(), which the caller has derived already
RowTexts sessionRow(const SessionSummary& session, const QString& when);
