#include "Answers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

static QByteArray listOf(const QString& name, const QJsonArray& records)
{
    return QJsonDocument(QJsonObject{{name, records}}).toJson(QJsonDocument::Compact);
}

QByteArray Answers::sessions(int count)
{
    static const QStringList statuses{
        u"requested"_s, u"scheduled"_s, u"confirmed"_s, u"completed"_s, u"cancelled"_s};
    QJsonArray sessions;
    for (int i = 0; i < count; ++i) {
        const QString name = u"Signer %1 Example"_s.arg(i);
        sessions.append(QJsonObject{
            {u"id"_s, i + 1},
            {u"reference_id"_s, u"RN-20260312-%1"_s.arg(i, 5, 10, QChar(u'0'))},
            {u"status"_s, statuses.at(i % statuses.size())},
            {u"scheduled_date"_s,
                u"2026-%1-%2"_s.arg(i % 12 + 1, 2, 10, QChar(u'0')).arg(i % 28 + 1, 2, 10, QChar(u'0'))},
            {u"scheduled_time"_s, u"%1:30 PM"_s.arg(i % 12 + 1)},
            {u"client_name"_s, name},
            {u"client_email"_s, u"signer%1@example.com"_s.arg(i)},
            {u"document_type"_s, u"Power of Attorney"_s},
            {u"signer_names"_s, QJsonArray{name, u"Second Signer"_s}},
            {u"updated_at"_s, u"2026-03-01 10:00:00"_s},
        });
    }
    return listOf(u"sessions"_s, sessions);
}

QByteArray Answers::messages(int count)
{
    QJsonArray messages;
    for (int id = 1; id <= count; ++id) {
        const QString sentence = id % 10 == 0
            ? u"\u05d4\u05d5\u05d3\u05e2\u05d4 \u05d1\u05e2\u05d1\u05e8\u05d9\u05ea. "_s
            : u"Message %1 of the thread, as people write it. "_s.arg(id);
        messages.append(QJsonObject{
            {u"id"_s, id},
            {u"sender_type"_s, id % 2 == 0 ? u"notary"_s : u"client"_s},
            {u"sender_name"_s, u"Sender %1"_s.arg(id)},
            {u"sender_email"_s, u"s@example.com"_s},
            {u"message"_s, sentence.repeated(1 + id * 7 % 13)},
            {u"created_at"_s, u"2026-03-10 09:42:10"_s},
        });
    }
    return listOf(u"messages"_s, messages);
}

QByteArray Answers::users(int count)
{
    static const QStringList given{u"Maria"_s, u"Priya"_s, u"Tomás"_s, u"Noor"_s, u"Elena"_s, u"Jordan"_s,
        u"Łukasz"_s, u"Anna"_s, u"Samuel"_s, u"Ingrid"_s};
    static const QStringList family{u"Kowalski"_s, u"Raman"_s, u"Alder"_s, u"Haddad"_s, u"Voss"_s, u"Ellis"_s,
        u"Whitfield"_s, u"Ørsted"_s};
    static const QStringList roles{u"client"_s, u"client"_s, u"business"_s, u"notary"_s, u"admin"_s};
    QJsonArray users;
    for (int i = 0; i < count; ++i) {
        const QString& familyName = i % 5 == 0 ? family.at(i / 5 % family.size()) : u"Other"_s;
        users.append(QJsonObject{
            {u"id"_s, i + 1},
            {u"full_name"_s, given.at(i % given.size()) + u' ' + familyName},
            {u"email"_s, u"account%1@example.com"_s.arg(i)},
            {u"phone"_s, u"(555) 010-%1"_s.arg(i % 10'000, 4, 10, QChar(u'0'))},
            {u"role"_s, roles.at(i % roles.size())},
            {u"city"_s, u"Springfield"_s},
            {u"state"_s, u"New York"_s},
            {u"created_at"_s, u"2026-03-01 10:00:00"_s},
        });
    }
    return listOf(u"users"_s, users);
}
