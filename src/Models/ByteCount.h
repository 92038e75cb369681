#pragma once

#include <QString>

/// A file size for people: decimal units, at most one decimal place, e.g. "512 bytes", "2 KB", "2.4 MB".
QString formattedByteCount(qint64 bytes);
