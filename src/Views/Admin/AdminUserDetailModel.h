#pragma once

#include "Admin/AdminDetailModel.h"
#include "AdminUserRecord.h"

/// The edit pane of a user account.
class AdminUserDetailModel : public AdminDetailOf<AdminUserRecord>
{
public:
    AdminUserDetailModel(const ScreenContext& context, const AdminUserRecord& user);

    EditField<QString> name{fields_};
    EditField<QString> email{fields_};
    EditField<QString> phone{fields_};
    EditField<QString> role{fields_};
    /// A new password; blank to leave the password as it is.
    EditField<QString> password{fields_};

    Texts texts() const override;

protected:
    void loadFields() override;
    QCoro::Task<JSONObject> sendSave(const APIClient& client, const QString& token) const override;
    QCoro::Task<JSONObject> sendDelete(const APIClient& client, const QString& token) const override;
};
