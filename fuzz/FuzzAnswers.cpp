// What the bridge may answer: every accessor, every derivation of every record, and the wording of failures.

#include "AdminRecordItem.h"
#include "AdminUserRecord.h"
#include "RemoteDocumentUpload.h"
#include "RemoteNotaryOption.h"
#include "RequestPipeline.h"
#include "SessionMessage.h"
#include "SessionSummary.h"

using namespace Qt::StringLiterals;

namespace {

void check(bool holds)
{
    if (!holds)
        __builtin_trap();
}

/// Whether reading the value as an integer ends the program, as it is meant to.
bool isBeyondIntegers(const JSONValue& value)
{
    bool isNumber = false;
    const double number = value.isString() ? 0 : value.rendered().toDouble(&isNumber);
    return isNumber && !(number >= -0x1p63 && number < 0x1p63);
}

bool endsTheProgram(const JSONObject& raw)
{
    for (const auto& key : {u"id"_s, u"notary_id"_s, u"user_id"_s, u"file_size"_s}) {
        if (isBeyondIntegers(raw.value(key)))
            return true;
    }
    return false;
}

void readMembers(const JSONObject& raw)
{
    for (const QString& key : raw.keys()) {
        check(!raw.string(key, u"fallback"_s).trimmed().isEmpty());
        raw.boolValue(key);
        if (!isBeyondIntegers(raw.value(key)))
            raw.intValue(key);
        raw.value(key).objects();
        raw.value(key).strings();
    }
}

void deriveRecords(const JSONObject& raw)
{
    const SessionSummary session{1, raw};
    check(!session.status().isEmpty() && !session.displayDateTime().isEmpty());
    check(!session.signerNames().contains(QString()));
    check(session == session);
    session.canCancel();

    const AdminRecordItem record{1, raw};
    check(!record.status().isEmpty() && !record.source().isEmpty() && !record.displayDateTime().isEmpty());
    check(!record.signerNames().contains(QString()));
    check(record == record);
    check(record.isWalkIn() == (record.recordType() == u"walkin"_s));

    const AdminUserRecord user{1, raw};
    check(user == user);

    const RemoteDocumentUpload document{1, raw};
    check(!document.displayName().isEmpty() && document.displayDetail().startsWith(document.fileName()));
    check(document == document);

    check(!RemoteNotaryOption::fromRaw(raw).name.isEmpty());
    check(!SessionMessage::fromRaw(raw).senderName.isEmpty());
}

void read(const JSONObject& raw)
{
    readMembers(raw);
    if (!endsTheProgram(raw))
        deriveRecords(raw);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    check(!cleanServerText(QString::fromUtf8(bytes)).isEmpty());
    const auto answer = JSONValue::parse(bytes);
    if (!answer)
        return 0;
    check(JSONValue::parse(answer->rendered().toUtf8()).has_value());
    if (const auto object = answer->object())
        read(*object);
    for (const JSONObject& raw : normalizeArray(*answer))
        read(raw);
    for (const int status : {400, 401, 403, 500}) {
        check(!friendlyHTTPError(status, *answer).message.isEmpty());
        check(!friendlyPublicHTTPError(status, *answer).isEmpty());
    }
    return 0;
}
