#pragma once

#include "Admin/AdminListModel.h"
#include "Lists/ListScreenView.h"

/// One of the lists of the administration with the edit pane of the selected record.
class AdminListView : public ListScreenView
{
    Q_OBJECT

protected:
    /// \param makePane  makes the edit pane of the selected record, called only when there is one
    AdminListView(std::shared_ptr<AdminListModel> model, const ListRowDelegate::Options& rowShape,
        MakeDetail makePane, QWidget* parent);
};
