#include "RecordFields.h"

using namespace Qt::StringLiterals;

QString RecordFields::dateTime(const JSONObject& raw)
{
    QStringList parts{raw.string(u"scheduled_date"_s, raw.string(u"preferred_date"_s)),
        raw.string(u"scheduled_time"_s, raw.string(u"preferred_time"_s))};
    parts.removeAll(QString());
    return parts.join(u' ');
}

QList<QString> RecordFields::signerNames(const JSONObject& raw, const QString& singleName)
{
    QList<QString> names;
    if (const auto texts = raw.value(u"signer_names"_s).strings()) {
        for (const QString& text : *texts)
            names.append(text.trimmed());
    } else if (const auto signers = raw.value(u"signers"_s).objects()) {
        for (const JSONObject& signer : *signers)
            names.append(signer.string(u"name"_s, signer.string(u"full_name"_s)));
    } else {
        names.append(singleName);
    }
    names.removeAll(QString());
    return names;
}
