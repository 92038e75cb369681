#pragma once

#include "Components/LazyColumn.h"
#include "RemoteDocumentUpload.h"
#include "Sessions/SessionDocumentRow.h"

/// The documents of a session in the order received, one row each.
class SessionDocumentList : public LazyColumn
{
    Q_OBJECT

public:
    /// \param page  in which the list scrolls
    explicit SessionDocumentList(QScrollArea& page, QWidget* parent = nullptr);

    void setDocuments(const QList<RemoteDocumentUpload>& documents);

signals:
    void openRequested(const RemoteDocumentUpload& document);

protected:
    QWidget* makeRow(qsizetype index) override;
    int estimatedHeight(qsizetype index, int width) const override;
    QList<QWidget*> tabStops(QWidget* row) const override;

private:
    QList<RemoteDocumentUpload> documents_;
};
