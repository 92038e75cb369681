#pragma once

#include "Admin/AdminListModel.h"
#include "Admin/AdminRecordDetailModel.h"

/// All records of the service in one list: remote sessions and walk-in records.
class AdminRecordsModel : public AdminListOf<AdminRecordItem, AdminRecordDetailModel>
{
public:
    explicit AdminRecordsModel(const ScreenContext& context);

    struct TypeOption
    {
        QString label;
        QString value;
    };
    /// The choices of the type picker, in its order.
    static const QList<TypeOption>& typeOptions();

    /// The value of a type option.
    QProperty<QString> typeFilter{typeOptions().constFirst().value};

private:
    void filterByType();

    QPropertyNotifier onTypeFilter_;
};
