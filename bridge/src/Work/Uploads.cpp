#include "Work/Uploads.h"

#include "People/Passwords.h"
#include "Store/Query.h"

#include <charconv>

namespace bridge {

static const std::string selectUploads
    = "select id, session_id, coalesce(user_id, 0), original_filename, path, mime_type, label, category,"
      " byte_size, sha256, download_key, uploaded_by_name, created_at from uploads";

static void fetchInto(Query& query, Upload& upload)
{
    query.into(upload.id).into(upload.sessionId).into(upload.userId).into(upload.originalName);
    query.into(upload.path).into(upload.mimeType).into(upload.label).into(upload.category);
    query.into(upload.byteSize).into(upload.sha256).into(upload.downloadKey).into(upload.uploadedBy);
    query.into(upload.createdAt);
}

void eachUpload(soci::session& sql, Id sessionId, const RowSink<Upload>& take)
{
    Upload upload;
    Query query(sql, selectUploads + " where session_id = :session order by id");
    query.bind("session", sessionId);
    fetchInto(query, upload);
    while (query.next() && take(upload)) { }
}

std::optional<Upload> findUpload(soci::session& sql, Id id)
{
    Upload upload;
    Query query(sql, selectUploads + " where id = :id");
    query.bind("id", id);
    fetchInto(query, upload);
    return query.next() ? std::optional(upload) : std::nullopt;
}

Upload addUpload(soci::session& sql, Upload upload)
{
    Query(sql,
        "insert into uploads(session_id, user_id, original_filename, path, mime_type, label, category,"
        " byte_size, sha256, download_key, uploaded_by_name, fields_json, created_at) values(:session,"
        " nullif(:user, 0), :name, :path, :mime, :label, :category, :size, :sha256, :key, :uploaded_by,"
        " :fields, :now)")
        .bind("session", upload.sessionId)
        .bind("user", upload.userId)
        .bind("name", upload.originalName)
        .bind("path", upload.path)
        .bind("mime", upload.mimeType)
        .bind("label", upload.label)
        .bind("category", upload.category)
        .bind("size", upload.byteSize)
        .bind("sha256", upload.sha256)
        .bind("key", upload.downloadKey)
        .bind("uploaded_by", upload.uploadedBy)
        .bind("fields", upload.fieldsJson)
        .bind("now", upload.createdAt)
        .run();
    upload.id = lastId(sql);
    return upload;
}

static constexpr std::chrono::days addressLasts(1);
static constexpr std::size_t keyBytes = 24;

std::string newDownloadKey()
{
    return randomText(keyBytes);
}

static std::string signedEnd(const Upload& upload, const std::string& end)
{
    return end + '.' + signature(upload.downloadKey, std::to_string(upload.id) + '.' + end);
}

std::string addressKey(const Upload& upload, Moment now)
{
    return signedEnd(upload, std::to_string(stamp(now + addressLasts)));
}

bool opens(const Upload& upload, const std::string& addressKey, Moment now)
{
    const std::string end = addressKey.substr(0, addressKey.find('.'));
    long long moment = 0;
    std::from_chars(end.data(), end.data() + end.size(), moment);
    return isSame(signedEnd(upload, end), addressKey) && stamp(now) < moment;
}

static void renewKeys(soci::session& sql, const std::vector<Id>& uploads)
{
    for (const Id id : uploads) {
        Query(sql, "update uploads set download_key = :key where id = :id")
            .bind("key", newDownloadKey())
            .bind("id", id)
            .run();
    }
}

static std::vector<Id> fetchIds(Query& query)
{
    std::vector<Id> ids;
    Id id = 0;
    query.into(id);
    while (query.next())
        ids.push_back(id);
    return ids;
}

void endAddressesOfSession(soci::session& sql, Id sessionId)
{
    Query query(sql, "select id from uploads where session_id = :session");
    renewKeys(sql, fetchIds(query.bind("session", sessionId)));
}

void endAddressesOfNotary(soci::session& sql, Id notaryId)
{
    Query query(
        sql, "select u.id from uploads u join sessions s on s.id = u.session_id where s.notary_id = :notary");
    renewKeys(sql, fetchIds(query.bind("notary", notaryId)));
}

std::vector<std::string> listUploadPaths(soci::session& sql)
{
    std::vector<std::string> paths;
    std::string path;
    Query query(sql, "select path from uploads");
    query.into(path);
    while (query.next())
        paths.push_back(path);
    return paths;
}

} // namespace bridge
