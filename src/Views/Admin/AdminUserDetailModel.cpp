#include "Admin/AdminUserDetailModel.h"

#include "Screen/AdminRows.h"

using namespace Qt::StringLiterals;

AdminUserDetailModel::AdminUserDetailModel(const ScreenContext& context, const AdminUserRecord& user)
    : AdminDetailOf(context)
{
    loadFrom(user);
}

AdminDetailModel::Texts AdminUserDetailModel::texts() const
{
    return {u"User Details"_s, u"Save User"_s, u"User was updated."_s, u"Cannot Save User"_s,
        u"Cannot Delete User"_s};
}

void AdminUserDetailModel::loadFields()
{
    const AdminUserTexts texts = AdminUserTexts::of(record());
    fill(name, texts.name);
    fill(email, texts.email);
    fill(phone, texts.phone);
    fill(role, texts.role);
}

QCoro::Task<JSONObject> AdminUserDetailModel::sendSave(const APIClient& client, const QString& token) const
{
    QJsonObject data{
        {u"full_name"_s, name.value()},
        {u"name"_s, name.value()},
        {u"email"_s, email.value()},
        {u"phone"_s, phone.value()},
        {u"role"_s, role.value()},
    };
    addNewPassword(data, password.value());
    return client.saveAdminUser(record().id, data, token);
}

QCoro::Task<JSONObject> AdminUserDetailModel::sendDelete(const APIClient& client, const QString& token) const
{
    return client.deleteAdminUser(record().id, token);
}
