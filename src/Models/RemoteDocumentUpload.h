#pragma once

#include "JSONObject.h"

/// One document uploaded to a session.
struct RemoteDocumentUpload
{
    qint64 id = 0;
    JSONObject raw;

    /// "original_filename", else "file_name", else "Document".
    QString fileName() const;
    QString displayName() const;
    /// File name, size and time of upload, as far as known, joined by bullets.
    QString displayDetail() const;

    friend bool operator==(const RemoteDocumentUpload& a, const RemoteDocumentUpload& b);
};
