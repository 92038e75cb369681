#pragma once

#include "Admin/AdminListView.h"
#include "Admin/AdminRecordsModel.h"

/// The list of all records with its search and type picker, and the selected record beside it.
class AdminRecordsView : public AdminListView
{
    Q_OBJECT

public:
    explicit AdminRecordsView(std::shared_ptr<AdminRecordsModel> model, QWidget* parent = nullptr);
};
