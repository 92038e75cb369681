#include "Work/Uploads.h"

#include "Store/Query.h"

namespace bridge {

static const std::string selectUploads
    = "select id, session_id, coalesce(user_id, 0), original_filename, path, mime_type, label, category,"
      " byte_size, sha256, download_key, uploaded_by_name, fields_json, created_at from uploads";

static void fetchInto(Query& query, Upload& upload)
{
    query.into(upload.id).into(upload.sessionId).into(upload.userId).into(upload.originalName);
    query.into(upload.path).into(upload.mimeType).into(upload.label).into(upload.category);
    query.into(upload.byteSize).into(upload.sha256).into(upload.downloadKey).into(upload.uploadedBy);
    query.into(upload.fieldsJson).into(upload.createdAt);
}

std::vector<Upload> listUploads(soci::session& sql, Id sessionId)
{
    std::vector<Upload> uploads;
    Upload upload;
    Query query(sql, selectUploads + " where session_id = :session order by id");
    query.bind("session", sessionId);
    fetchInto(query, upload);
    while (query.next())
        uploads.push_back(upload);
    return uploads;
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
