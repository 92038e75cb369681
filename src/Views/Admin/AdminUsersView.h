#pragma once

#include "Admin/AdminListView.h"
#include "Admin/AdminUsersModel.h"

/// The list of all user accounts with its search, and the selected account beside it.
class AdminUsersView : public AdminListView
{
    Q_OBJECT

public:
    explicit AdminUsersView(std::shared_ptr<AdminUsersModel> model, QWidget* parent = nullptr);
};
