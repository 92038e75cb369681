#pragma once

#include "DesktopUploadDraft.h"

#include <QHash>
#include <QSet>
#include <QWidget>

class PendingFileRow;
class QScrollArea;

/// Files that wait for their upload, one row each. There may be thousands: only the rows in view, and the few
/// that the Tab key can reach from where the focus is, exist at any time.
class PendingFileList : public QWidget
{
    Q_OBJECT

public:
    /// \param placeholder  of the label fields
    /// \param before  comes before the rows in the Tab order
    /// \param page  in which the list scrolls
    PendingFileList(
        const QString& placeholder, QWidget& before, QScrollArea& page, QWidget* parent = nullptr);

    /// Rows of drafts that are shown already stay as they are, with focus and cursor.
    void setDrafts(const QList<DesktopUploadDraft>& drafts);

signals:
    void labelEdited(const QUuid& id, const QString& label);
    void categoryPicked(const QUuid& id, const QString& category);
    void removeRequested(const QUuid& id);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    qsizetype indexOf(const QUuid& id) const;
    qsizetype focusedIndex() const;
    QList<qsizetype> neededRows() const;
    void updateRows();
    PendingFileRow* makeRow(const DesktopUploadDraft& draft);
    void moveFocusFromRemoved(const QSet<QUuid>& staying);

    QString placeholder_;
    QWidget& before_;
    QScrollArea& page_;
    QList<DesktopUploadDraft> drafts_;
    QHash<QUuid, PendingFileRow*> rows_;
    int rowHeight_ = 0; ///< of every row, known from the first one
};
