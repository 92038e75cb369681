#pragma once

#include "Components/LazyColumn.h"
#include "DesktopUploadDraft.h"

class PendingFileRow;

/// Files that wait for their upload, one row each. There may be thousands.
class PendingFileList : public LazyColumn
{
    Q_OBJECT

public:
    enum class Detail
    {
        hidden,
        shown, ///< each file's name and size
    };

    /// \param page  in which the list scrolls
    PendingFileList(Detail detail, QScrollArea& page, QWidget* parent = nullptr);

    /// Rows of drafts that are shown already stay as they are, with focus and cursor.
    void setDrafts(const QList<DesktopUploadDraft>& drafts);

signals:
    void labelEdited(const QUuid& id, const QString& label);
    void categoryPicked(const QUuid& id, const QString& category);
    void removeRequested(const QUuid& id);

protected:
    QWidget* makeRow(qsizetype index) override;
    QList<QWidget*> tabStops(QWidget* row) const override;

private:
    DesktopUploadDraft* find(const QUuid& id);
    void connectRow(const PendingFileRow* row, const QUuid& id);

    Detail detail_;
    QList<DesktopUploadDraft> drafts_;
};
