#pragma once

#include "Admin/AdminDetailModel.h"
#include "RemoteNotaryOption.h"

/// The edit pane of a notary's profile.
class AdminNotaryDetailModel : public AdminDetailOf<RemoteNotaryOption>
{
public:
    AdminNotaryDetailModel(const ScreenContext& context, const RemoteNotaryOption& notary);

    EditField<QString> name{fields_};
    EditField<QString> email{fields_};
    EditField<QString> phone{fields_};
    EditField<QString> state{fields_};
    EditField<QString> county{fields_};
    EditField<QString> commissionNumber{fields_};
    EditField<QString> commissionExpiration{fields_};
    EditField<QString> billingStatus{fields_};
    EditField<bool> isActive{fields_};
    /// A new password; blank to leave the password as it is.
    EditField<QString> password{fields_};

    Texts texts() const override;

protected:
    void loadFields() override;
    QCoro::Task<JSONObject> sendSave(const APIClient& client, const QString& token) const override;
    QCoro::Task<JSONObject> sendDelete(const APIClient& client, const QString& token) const override;
};
