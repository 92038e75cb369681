#include "Screen/SessionRow.h"

using namespace Qt::StringLiterals;

RowTexts sessionRow(const SessionSummary& session, const QString& when)
{
    const JSONObject& raw = session.raw;
    const QString client
        = raw.string(u"client_name"_s, raw.string(u"user_full_name"_s, raw.string(u"contact_name"_s)));
    const QString email
        = raw.string(u"client_email"_s, raw.string(u"user_email"_s, raw.string(u"contact_email"_s)));
    const QString documentType = raw.string(u"document_type"_s, u"Remote notary session"_s);
    const QString status = session.status();
    const QStringList signers = session.signerNames();

    RowTexts row;
    row.id = session.id;
    row.title = signers.isEmpty() ? client : signers.join(u", "_s);
    row.secondary = when;
    row.metaIcon = u"doc.text.fill"_s;
    row.meta = documentType;
    row.pill = status;
    row.search
        = QStringList{session.reference(), client, email, status, documentType, when, signers.join(u' ')}
              .join(u' ');
    row.filter = status.toLower();
    return row;
}
