#pragma once

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
    /// Whoever knows it may download the document without signing in, as a browser must.
    std::string downloadKey;
    std::string uploadedBy;
    /// The form's text fields as they came, a JSON object.
    std::string fieldsJson;
    long long createdAt = 0;
};

/// Oldest first.
std::vector<Upload> listUploads(soci::session& sql, Id sessionId);

std::optional<Upload> findUpload(soci::session& sql, Id id);

Upload addUpload(soci::session& sql, Upload upload);

/// The paths of every stored document.
std::vector<std::string> listUploadPaths(soci::session& sql);

} // namespace bridge
