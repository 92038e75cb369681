#pragma once

#include "Admin/AdminDetailView.h"
#include "Admin/AdminNotaryDetailModel.h"

/// The profile that is selected in the list of notaries.
class AdminNotaryDetailView : public AdminDetailView
{
    Q_OBJECT

public:
    explicit AdminNotaryDetailView(
        const std::shared_ptr<AdminNotaryDetailModel>& model, QWidget* parent = nullptr);
};
