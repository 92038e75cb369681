#pragma once

#include "Screen/RowListModel.h"
#include "SessionSummary.h"

/// The rows of the dashboards' short lists. An absent name leaves no gap: the texts below it move up.
namespace DashboardRows {

/// How a dashboard calls a session: by its signers, else by the person it is for. Unlike in the sessions
/// list the contact's name comes first.
QString sessionName(const SessionSummary& session);

/// Name, and date and time, with the status.
RowTexts recentSession(const SessionSummary& session);
/// Name, date and time, and document type, with the status.
RowTexts assignedSession(const SessionSummary& session);
/// The same without the status: a button stands in its place.
RowTexts openCall(const SessionSummary& session);
/// Name and e-mail address, or that there is neither. Such a row is only read and has no id.
RowTexts businessClient(const JSONObject& client);

/// The rows of a whole list, one a record.
template <typename Record>
RowListModel::Content of(const QList<Record>& records, RowTexts (*row)(const Record&))
{
    QList<RowTexts> rows;
    rows.reserve(records.size());
    for (const Record& record : records)
        rows += row(record);
    return RowListModel::Content::of(std::move(rows));
}

} // namespace DashboardRows
