#pragma once

#include "Screen/EditPaneModel.h"
#include "Screen/LoadingModel.h"
#include "Screen/RowListModel.h"

/// What the screens that work through records have in common: a list that can be searched, and the detail of
/// the record that is selected in it.
class ListScreenModel : public LoadingModel
{
    Q_OBJECT

public:
    explicit ListScreenModel(const ScreenContext& context);

    QProperty<QString> search;

    /// The rows of the records that pass the search and the pickers.
    RowListModel& rows() { return rows_; }
    const RowListModel& rows() const { return rows_; }

    /// Loads all that is on screen again.
    virtual void refresh() = 0;

    /// The row of the selected record, by its id; nothing when none is selected.
    virtual std::optional<qint64> selectedRow() const = 0;
    /// The detail of the selected record; null when none is selected.
    virtual std::shared_ptr<EditPaneModel> pane() const = 0;
    /// Selects the record of a row once the selected one may be left; an unknown row changes nothing.
    virtual void select(qint64 row) = 0;
    /// What would be lost with the selected record's detail.
    LeaveGuard::Unfinished unfinished() const;

signals:
    /// Another record is selected, or the same one with other contents.
    void selectionChanged();

private:
    RowListModel rows_;
    QPropertyNotifier onSearch_;
};
