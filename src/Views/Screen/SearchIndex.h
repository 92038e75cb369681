#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// Finds the rows of a list whose text holds a query, whatever the letter case. The texts lie lower-cased in
/// one buffer, so that a search is one pass over contiguous bytes.
class SearchIndex
{
public:
    /// \param texts  one text a row, in the rows' order
    static SearchIndex of(const QList<QString>& texts);

    /// The matching rows in their order. The query is trimmed first; an empty one matches every row.
    QList<int> matches(const QString& query) const;

    int rowCount() const { return int(ends_.size()); }

private:
    QByteArray buffer_; ///< each text followed by a byte that no UTF-8 text contains
    QList<qsizetype> ends_; ///< where each row's text ends in the buffer
};
