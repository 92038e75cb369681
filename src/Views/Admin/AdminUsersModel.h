#pragma once

#include "Admin/AdminListModel.h"
#include "Admin/AdminUserDetailModel.h"

/// All user accounts of the service.
class AdminUsersModel : public AdminListOf<AdminUserRecord, AdminUserDetailModel>
{
public:
    explicit AdminUsersModel(const ScreenContext& context);
};
