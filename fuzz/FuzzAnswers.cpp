// What the bridge may answer: the head, every accessor, every derivation of every record, signing in, and the
// wording of failures.

#include "AdminRecordItem.h"
#include "AdminUserRecord.h"
#include "AnswerReader.h"
#include "AppError.h"
#include "AuthManager.h"
#include "RemoteDocumentUpload.h"
#include "RemoteNotaryOption.h"
#include "RequestPipeline.h"
#include "SessionMessage.h"
#include "SessionSummary.h"

#include <cmath>

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
    // Of too many digits even for a double.
    const bool isEndless = std::isinf(number);
    return isEndless || (isNumber && !(number >= -0x1p63 && number < 0x1p63));
}

/// Whether some number, here or in an object inside, ends the program when it is read as an integer.
bool endsTheProgram(const JSONObject& raw)
{
    const QList<QString> keys = raw.keys();
    return std::any_of(keys.begin(), keys.end(), [&raw](const QString& key) {
        const auto inner = raw.object(key);
        return isBeyondIntegers(raw.value(key)) || (inner && endsTheProgram(*inner));
    });
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

/// Whoever signs in is somebody whole, in the answer and on disk.
void signIn(const JSONObject& raw)
{
    const JSONObject profile = AuthManager::profileFromBridgeResponse(raw);
    try {
        const AuthUser user
            = AuthManager::merge(AuthManager::authUserFromBridgeResponse(raw, u"a@b.c"_s), profile);
        check(!user.idToken.isEmpty() && !user.refreshToken.isEmpty() && !user.email.isEmpty());
        check(AuthManager::availableRoles(user).startsWith(AppRole::client));
        check(AuthUser::decode(user.encoded()) == user);
    } catch (const AppError& error) {
        check(!error.message().isEmpty());
    }
}

void read(const JSONObject& raw)
{
    readMembers(raw);
    if (endsTheProgram(raw))
        return;
    deriveRecords(raw);
    signIn(raw);
}

void readHead(const QByteArray& bytes)
{
    constexpr qint64 largestBody = 1000;
    AnswerReader reader(largestBody);
    bool goesOn = true;
    for (const QByteArray& line : bytes.split('\n')) {
        goesOn = goesOn && reader.takeHeaderLine(line + '\n');
        check(goesOn != reader.flaw().has_value());
    }
    if (goesOn)
        check(reader.takeBody(bytes) == (bytes.size() <= largestBody));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    readHead(bytes);
    check(!cleanServerText(QString::fromUtf8(bytes)).isEmpty());
    const auto answer = JSONValue::parse(bytes);
    if (!answer)
        return 0;
    check(JSONValue::parse(answer->rendered().toUtf8()).has_value());
    if (const auto object = answer->object())
        read(*object);
    for (const JSONObject& raw : normalizeArray(*answer))
        read(raw);
    if (answer->isObject())
        unwrappedObject(*answer);
    for (const int status : {400, 401, 403, 500}) {
        check(!friendlyHTTPError(status, *answer).message.isEmpty());
        check(!friendlyPublicHTTPError(status, *answer).isEmpty());
    }
    return 0;
}
