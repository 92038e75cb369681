#pragma once

#include "Admin/AdminListView.h"
#include "Admin/AdminNotariesModel.h"

/// The list of all notary profiles with its search, and the selected profile beside it.
class AdminNotariesView : public AdminListView
{
    Q_OBJECT

public:
    explicit AdminNotariesView(std::shared_ptr<AdminNotariesModel> model, QWidget* parent = nullptr);
};
