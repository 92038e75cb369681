#pragma once

#include "Admin/AdminDetailView.h"
#include "Admin/AdminUserDetailModel.h"

/// The account that is selected in the list of users.
class AdminUserDetailView : public AdminDetailView
{
    Q_OBJECT

public:
    explicit AdminUserDetailView(
        const std::shared_ptr<AdminUserDetailModel>& model, QWidget* parent = nullptr);
};
