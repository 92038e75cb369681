#include "Screen/AdminRows.h"

using namespace Qt::StringLiterals;

AdminRecordTexts AdminRecordTexts::of(const AdminRecordItem& record)
{
    const JSONObject& raw = record.raw;
    return {
        .contactName = raw.string(u"contact_name"_s, raw.string(u"client_name"_s, raw.string(u"name"_s))),
        .contactEmail = raw.string(u"contact_email"_s, raw.string(u"client_email"_s, raw.string(u"email"_s))),
        .documentType = raw.string(u"document_type"_s, raw.string(u"document_types"_s)),
    };
}

AdminUserTexts AdminUserTexts::of(const AdminUserRecord& user)
{
    const JSONObject& raw = user.raw;
    return {
        .name = raw.string(u"full_name"_s, raw.string(u"name"_s, raw.string(u"display_name"_s))),
        .email = raw.string(u"email"_s),
        .phone = raw.string(u"phone"_s),
        .role = raw.string(u"role"_s, raw.string(u"app_role"_s, u"client"_s)),
    };
}

/// The first text that says something.
static QString firstOf(std::initializer_list<QString> texts)
{
    const auto found
        = std::find_if(texts.begin(), texts.end(), [](const QString& text) { return !text.isEmpty(); });
    return found == texts.end() ? QString() : *found;
}

static QString joined(QStringList texts, const QString& separator)
{
    texts.removeAll(QString());
    return texts.join(separator);
}

RowTexts AdminRows::record(const AdminRecordItem& record)
{
    const AdminRecordTexts texts = AdminRecordTexts::of(record);
    const QString type = record.recordType();
    const QString when = record.displayDateTime();
    const QString status = record.status();
    const QStringList signers = record.signerNames();
    const bool isWalkIn = type.toLower() == u"walkin"_s;

    RowTexts row;
    row.title = firstOf({signers.join(u", "_s), texts.contactName, u"Unnamed record"_s});
    row.secondary = when;
    row.metaIcon = isWalkIn ? u"person.text.rectangle.fill"_s : u"video.badge.checkmark"_s;
    row.meta = texts.documentType;
    row.pill = isWalkIn ? u"Walk-In"_s : status;
    row.search = QStringList{type, when, status, texts.contactName, texts.contactEmail, texts.documentType,
        signers.join(u' ')}
                     .join(u' ');
    row.filter = type.toLower();
    return row;
}

RowTexts AdminRows::user(const AdminUserRecord& user)
{
    const AdminUserTexts texts = AdminUserTexts::of(user);
    RowTexts row;
    row.title = firstOf({texts.name, texts.email, texts.phone, u"Unnamed user"_s});
    row.secondary = texts.email;
    row.metaIcon = u"person.fill"_s;
    row.trailing = texts.role;
    row.search = QStringList{texts.name, texts.email, texts.phone, texts.role}.join(u' ');
    return row;
}

RowTexts AdminRows::notary(const RemoteNotaryOption& notary)
{
    RowTexts row;
    row.title = notary.name;
    row.secondary = firstOf({joined({notary.county, notary.state}, u", "_s), notary.email});
    row.metaIcon = u"checkmark.seal.fill"_s;
    row.pill = notary.active ? notary.billingStatus : u"inactive"_s;
    row.isIdle = !notary.active;
    row.search = QStringList{notary.name, notary.email, notary.county, notary.state}.join(u' ');
    return row;
}
