#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <optional>

/// A file chosen but not yet uploaded.
struct DesktopUploadDraft
{
    QUuid id = QUuid::createUuid();
    QUrl url; ///< standardized local file address
    QString label;
    QString category; ///< one of the values of uploadCategories()
    std::optional<qint64> size; ///< when the file was attached; nothing where it could not be read

    QString fileName() const { return url.fileName(); }
    /// The file's name and size joined by a bullet; the size is left out when the file cannot be read.
    QString detail() const;

    bool operator==(const DesktopUploadDraft&) const = default;
};

struct UploadCategory
{
    QString value;
    QString label;
};
/// The categories in the order of their picker.
const QList<UploadCategory>& uploadCategories();

/// What a file's name tells about it.
namespace DesktopFileHelpers {

QString mimeType(const QUrl& file);
/// A guess from plain substrings of the name; any name that holds "id" is taken for an identity document.
QString suggestedCategory(const QUrl& file);
QString icon(const QUrl& file);
QString icon(const QString& fileName);
/// The file name without extension, "_" and "-" as blanks; the whole name when nothing is left.
QString suggestedLabel(const QUrl& file);
/// The same file by one spelling: absolute, without "." and "..". Empty for what is no local file.
QUrl standardized(const QUrl& file);

} // namespace DesktopFileHelpers

/// A file to attach.
struct AttachedFile
{
    QUrl url;
    std::optional<qint64> size{}; ///< as in the draft
};
/// Appends a draft for every address that is not among the drafts yet, in the order given.
void addDrafts(QList<DesktopUploadDraft>& drafts, const QList<AttachedFile>& files);
