#include "Admin/AdminRecordDetailModel.h"

#include "Screen/AdminRows.h"

using namespace Qt::StringLiterals;

AdminRecordDetailModel::AdminRecordDetailModel(const ScreenContext& context, const AdminRecordItem& record)
    : AdminDetailOf(context)
{
    loadFrom(record);
}

AdminDetailModel::Texts AdminRecordDetailModel::texts() const
{
    return {u"Record Details"_s, u"Save Record"_s, u"Record was updated."_s, u"Cannot Save Record"_s,
        u"Cannot Delete Record"_s};
}

void AdminRecordDetailModel::loadFields()
{
    const JSONObject& raw = record().raw;
    const AdminRecordTexts texts = AdminRecordTexts::of(record());
    fill(status, record().status());
    fill(contactName, texts.contactName);
    fill(contactEmail, texts.contactEmail);
    fill(contactPhone, raw.string(u"contact_phone"_s, raw.string(u"client_phone"_s, raw.string(u"phone"_s))));
    fill(documentType, texts.documentType);
    fill(scheduledDate, raw.string(u"scheduled_date"_s, raw.string(u"preferred_date"_s)));
    fill(scheduledTime, raw.string(u"scheduled_time"_s, raw.string(u"preferred_time"_s)));
    fill(notes, raw.string(u"notes"_s, raw.string(u"admin_notes"_s)));
}

QCoro::Task<JSONObject> AdminRecordDetailModel::sendSave(const APIClient& client, const QString& token) const
{
    const QJsonObject data{
        {u"status"_s, status.value()},
        {u"contact_name"_s, contactName.value()},
        {u"contact_email"_s, contactEmail.value()},
        {u"contact_phone"_s, contactPhone.value()},
        {u"document_type"_s, documentType.value()},
        {u"scheduled_date"_s, scheduledDate.value()},
        {u"scheduled_time"_s, scheduledTime.value()},
        {u"notes"_s, notes.value()},
    };
    return client.saveAdminRecord(record().id, record().recordType(), record().source(), data, token);
}

QCoro::Task<JSONObject> AdminRecordDetailModel::sendDelete(
    const APIClient& client, const QString& token) const
{
    return client.deleteAdminRecord(record().id, record().recordType(), record().source(), token);
}
