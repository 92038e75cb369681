#pragma once

#include "Admin/AdminListModel.h"
#include "Admin/AdminNotaryDetailModel.h"

/// The profiles of all notaries of the service.
class AdminNotariesModel : public AdminListOf<RemoteNotaryOption, AdminNotaryDetailModel>
{
public:
    explicit AdminNotariesModel(const ScreenContext& context);
};
