#include "Booking/BookRemoteNotaryModel.h"

#include "Screen/NewYorkTime.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

/// A signer's texts under the prefixes of the numbered keys and the names of the list keys.
struct SignerKey
{
    QString prefix;
    QString list;
    std::function<QString(const SignerDraft&)> text;
};

const QList<SignerKey>& signerKeys()
{
    static const QList<SignerKey> keys{
        {u"signer_name_"_s, u"signer_names"_s, [](const SignerDraft& s) { return s.name.trimmed(); }},
        {u"signer_email_"_s, u"signer_emails"_s, [](const SignerDraft& s) { return s.email.trimmed(); }},
        {u"signer_phone_"_s, u"signer_phones"_s, [](const SignerDraft& s) { return s.phone.trimmed(); }},
        {u"signer_id_type_"_s, u"signer_id_types"_s, [](const SignerDraft& s) { return s.idType.trimmed(); }},
        {u"signer_id_expiration_"_s, u"signer_id_expirations"_s,
            [](const SignerDraft& s) { return NewYorkTime::dateText(s.idExpirationDate); }},
    };
    return keys;
}

/// Each text twice: under a key of its own with the signer's number, and in a list.
void insertSigners(QJsonObject& body, const QList<SignerDraft>& signers)
{
    for (const SignerKey& key : signerKeys()) {
        QJsonArray list;
        for (qsizetype i = 0; i < signers.size(); ++i) {
            const QString text = key.text(signers.at(i));
            body.insert(key.prefix + QString::number(i + 1), text);
            list.append(text);
        }
        body.insert(key.list, list);
    }
}

} // namespace

QJsonObject BookRemoteNotaryModel::requestBody() const
{
    QJsonObject body = formBody();
    if (isBusiness()) {
        body.insert(u"scheduled_by_business"_s, true);
        for (const QString& fact : {u"name"_s, u"email"_s, u"phone"_s})
            body.insert(u"client_"_s + fact, body.value(u"contact_"_s + fact));
    }
    return body;
}

/// What the form asks for, whoever sends it.
QJsonObject BookRemoteNotaryModel::formBody() const
{
    QJsonObject body{
        {u"contact_name"_s, contactName.value().trimmed()},
        {u"contact_email"_s, contactEmail.value().trimmed()},
        {u"contact_phone"_s, contactPhone.value().trimmed()},
        {u"appointment_asap"_s, asap.value()},
        {u"document_retrieval_option"_s, documentRetrievalOption.value()},
        {u"document_type"_s, documentType.value().trimmed()},
        {u"notary_act_unknown"_s, actUnknown.value()},
        {u"remote_signing_details"_s, details.value().trimmed()},
        {u"requires_witness"_s, witnessRequired.value()},
        {u"needs_apostille"_s, apostilleNeeded.value()},
        {u"notes"_s, notes.value().trimmed()},
        {u"signer_count"_s, signers_.size()},
        {u"timezone"_s, u"America/New_York"_s},
        {u"booking_source"_s, u"macos_desktop"_s},
    };
    if (!asap.value()) {
        body.insert(u"preferred_date"_s, NewYorkTime::dateText(scheduledDate.value()));
        body.insert(u"preferred_time"_s, NewYorkTime::timeText(scheduledDate.value()));
    }
    if (!actUnknown.value())
        body.insert(u"notary_act_count"_s, actCount.value());
    insertSigners(body, signers_);
    return body;
}
