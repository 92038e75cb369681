#include "Admin/AdminNotaryDetailModel.h"

using namespace Qt::StringLiterals;

AdminNotaryDetailModel::AdminNotaryDetailModel(const ScreenContext& context, const RemoteNotaryOption& notary)
    : AdminDetailOf(context)
{
    loadFrom(notary);
}

AdminDetailModel::Texts AdminNotaryDetailModel::texts() const
{
    return {u"Notary Details"_s, u"Save Notary"_s, u"Notary was updated."_s, u"Cannot Save Notary"_s,
        u"Cannot Delete Notary"_s};
}

void AdminNotaryDetailModel::loadFields()
{
    const RemoteNotaryOption& notary = record();
    fill(name, notary.name);
    fill(email, notary.email);
    fill(phone, notary.phone);
    fill(state, notary.state);
    fill(county, notary.county);
    fill(commissionNumber, notary.commissionNumber);
    fill(commissionExpiration, notary.commissionExpirationDate);
    fill(billingStatus, notary.billingStatus);
    fill(isActive, notary.active);
}

QCoro::Task<JSONObject> AdminNotaryDetailModel::sendSave(const APIClient& client, const QString& token) const
{
    QJsonObject data{
        {u"name"_s, name.value()},
        {u"full_name"_s, name.value()},
        {u"email"_s, email.value()},
        {u"phone"_s, phone.value()},
        {u"notarial_state"_s, state.value()},
        {u"state"_s, state.value()},
        {u"county"_s, county.value()},
        {u"commission_number"_s, commissionNumber.value()},
        {u"commission_expiration_date"_s, commissionExpiration.value()},
        {u"billing_status"_s, billingStatus.value()},
        {u"active"_s, isActive.value()},
    };
    addNewPassword(data, password.value());
    return client.saveAdminNotary(record().id, data, token);
}

QCoro::Task<JSONObject> AdminNotaryDetailModel::sendDelete(
    const APIClient& client, const QString& token) const
{
    return client.deleteAdminNotary(record().id, token);
}
