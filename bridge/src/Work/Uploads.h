#pragma once

#include "Moment.h"
#include "Store/Id.h"
#include "Store/Soci.h"

#include <optional>
#include <string>
#include <vector>

namespace bridge {

/// A document of a session: a file of UploadStore and what was said about it.
struct Upload
{
    Id id = 0;
    Id sessionId = 0;
    Id userId = 0;
    std::string originalName;
    /// The file's name in the upload folder.
    std::string path;
    std::string mimeType;
    std::string label;
    std::string category;
    long long byteSize = 0;
    /// In lower-case hexadecimal digits.
    std::string sha256;
    /// Known to this server alone: the addresses of the document are made from it.
    std::string downloadKey;
    std::string uploadedBy;
    /// The form's text fields as they came, a JSON object; of several documents of one form the first has
    /// them. Written for the record and never read again.
    std::string fieldsJson = "{}";
    long long createdAt = 0;
};

/// Oldest first.
void eachUpload(soci::session& sql, Id sessionId, const RowSink<Upload>& take);

std::optional<Upload> findUpload(soci::session& sql, Id id);

Upload addUpload(soci::session& sql, Upload upload);

/// For a document that is new.
std::string newDownloadKey();

/// The part of a document's address that lets a browser have it, which cannot sign in: the moment when the
/// address ends, a day from now, signed with the document's key.
std::string addressKey(const Upload& upload, Moment now);

/// Whether it was made by addressKey() for this document, and has not ended.
bool opens(const Upload& upload, const std::string& addressKey, Moment now);

/// Ends every address that was told of the documents of a session, or of all sessions of a notary.
void endAddressesOfSession(soci::session& sql, Id sessionId);
void endAddressesOfNotary(soci::session& sql, Id notaryId);

/// The paths of every stored document.
std::vector<std::string> listUploadPaths(soci::session& sql);

} // namespace bridge
