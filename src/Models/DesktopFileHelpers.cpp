#include "DesktopUploadDraft.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Ending
{
    QLatin1StringView ending;
    QLatin1StringView mimeType;
    QLatin1StringView icon;
};

constexpr auto photo = "photo.fill"_L1;
constexpr auto text = "doc.text.fill"_L1;
constexpr auto table = "tablecells.fill"_L1;
constexpr auto plain = "doc.fill"_L1;

// .heif goes out as image/heic: the server knows no other name for it.
constexpr std::array endings{
    Ending{".pdf"_L1, "application/pdf"_L1, "doc.richtext.fill"_L1},
    Ending{".jpg"_L1, "image/jpeg"_L1, photo},
    Ending{".jpeg"_L1, "image/jpeg"_L1, photo},
    Ending{".png"_L1, "image/png"_L1, photo},
    Ending{".heic"_L1, "image/heic"_L1, photo},
    Ending{".heif"_L1, "image/heic"_L1, photo},
    Ending{".tif"_L1, "image/tiff"_L1, photo},
    Ending{".tiff"_L1, "image/tiff"_L1, photo},
    Ending{".doc"_L1, "application/msword"_L1, text},
    Ending{".docx"_L1, "application/vnd.openxmlformats-officedocument.wordprocessingml.document"_L1, text},
    Ending{".xls"_L1, "application/vnd.ms-excel"_L1, table},
    Ending{".xlsx"_L1, "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"_L1, table},
    Ending{".txt"_L1, "text/plain"_L1, plain},
};
constexpr Ending otherwise{""_L1, "application/octet-stream"_L1, plain};

constexpr std::array identityWords{"passport"_L1, "license"_L1, "driver"_L1, "id"_L1, "identification"_L1};
constexpr std::array apostilleWords{"apostille"_L1};
constexpr std::array notarizedWords{"poa"_L1, "power"_L1, "affidavit"_L1, "jurat"_L1, "acknowledgment"_L1,
    "acknowledgement"_L1, "closing"_L1, "deed"_L1};

const Ending& endingOf(const QString& fileName)
{
    const QString name = fileName.toLower();
    const auto found = std::find_if(
        endings.begin(), endings.end(), [&](const Ending& row) { return name.endsWith(row.ending); });
    return found == endings.end() ? otherwise : *found;
}

template <size_t n>
bool containsAny(const QString& name, const std::array<QLatin1StringView, n>& words)
{
    return std::any_of(
        words.begin(), words.end(), [&](QLatin1StringView word) { return name.contains(word); });
}

} // namespace

QString DesktopFileHelpers::mimeType(const QUrl& file)
{
    return endingOf(file.fileName()).mimeType;
}

QString DesktopFileHelpers::icon(const QUrl& file)
{
    return icon(file.fileName());
}

QString DesktopFileHelpers::icon(const QString& fileName)
{
    return endingOf(fileName).icon;
}

QString DesktopFileHelpers::suggestedCategory(const QUrl& file)
{
    const QString name = file.fileName().toLower();
    if (containsAny(name, identityWords))
        return u"government_id"_s;
    if (containsAny(name, apostilleWords))
        return u"apostille_document"_s;
    if (containsAny(name, notarizedWords))
        return u"notarized_document"_s;
    return u"supporting_document"_s;
}

QString DesktopFileHelpers::suggestedLabel(const QUrl& file)
{
    const QString name = file.fileName();
    QString label = QFileInfo(name).completeBaseName();
    label = label.replace(u'_', u' ').replace(u'-', u' ').trimmed();
    return label.isEmpty() ? name : label;
}

QUrl DesktopFileHelpers::standardized(const QUrl& file)
{
    const bool isHere = file.host().isEmpty() || file.host() == u"localhost"_s;
    QString path = QDir::cleanPath(file.path(QUrl::FullyDecoded));
    if (!file.isLocalFile() || !isHere || !QDir::isAbsolutePath(path) || path.contains(QChar::Null))
        return {};
    while (path.startsWith(u"/../"_s)) // above the root lies the root
        path.remove(0, 3);
    return QUrl::fromLocalFile(path);
}
