#pragma once

#include "Admin/AdminDetailModel.h"
#include "AdminRecordItem.h"

/// The edit pane of a walk-in record or a remote session.
class AdminRecordDetailModel : public AdminDetailOf<AdminRecordItem>
{
public:
    AdminRecordDetailModel(const ScreenContext& context, const AdminRecordItem& record);

    EditField<QString> status{fields_};
    EditField<QString> contactName{fields_};
    EditField<QString> contactEmail{fields_};
    EditField<QString> contactPhone{fields_};
    EditField<QString> documentType{fields_};
    EditField<QString> scheduledDate{fields_};
    EditField<QString> scheduledTime{fields_};
    EditField<QString> notes{fields_};

    Texts texts() const override;

protected:
    void loadFields() override;
    QCoro::Task<JSONObject> sendSave(const APIClient& client, const QString& token) const override;
    QCoro::Task<JSONObject> sendDelete(const APIClient& client, const QString& token) const override;
};
