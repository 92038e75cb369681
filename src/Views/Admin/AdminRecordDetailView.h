#pragma once

#include "Admin/AdminDetailView.h"
#include "Admin/AdminRecordDetailModel.h"

/// The record that is selected in the list of records.
class AdminRecordDetailView : public AdminDetailView
{
    Q_OBJECT

public:
    explicit AdminRecordDetailView(
        const std::shared_ptr<AdminRecordDetailModel>& model, QWidget* parent = nullptr);
};
