#include "SettingsFile.h"

#include "DiskFile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <new>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestFile = 1024 * 1024;

/// Whether an entry holds a serialised object. Nothing of the kind is written here, and reading one can take
/// any amount of memory.
bool holdsObjects(const QByteArray& content)
{
    bool isStart = false; // of an entry's value, or of one of its elements
    bool isQuoted = false;
    for (qsizetype i = 0; i < content.size(); ++i) {
        const QByteArrayView rest = QByteArrayView(content).sliced(i);
        if (isStart && (rest.startsWith("@Variant(") || rest.startsWith("@DateTime(")))
            return true;
        const char letter = content[i];
        if (letter == '\\')
            ++i;
        else if (letter == '"')
            isQuoted = !isQuoted;
        else if (letter == '\n')
            isQuoted = false;
        const bool isBlank = letter == '"' || letter == ' ' || letter == '\t';
        isStart = (!isQuoted && (letter == '=' || letter == ',')) || (isStart && isBlank);
    }
    return false;
}

/// Whether the text can be written as UTF-8. A damaged file can spell half a surrogate pair, which would
/// never read back as it was.
bool isWhole(const QString& text)
{
    return QString::fromUtf8(text.toUtf8()) == text;
}

bool isOurs(const QString& key)
{
    static const QRegularExpression plainKey(u"\\A[A-Za-z0-9._-]+\\z"_s);
    return plainKey.match(key).hasMatch();
}

bool isOurs(const QVariant& value)
{
    return value.typeId() == QMetaType::QByteArray
        || (value.typeId() == QMetaType::QString && isWhole(value.toString()));
}

/// The file as QSettings reads it, which by itself remembers what a file of this name held before.
SettingsFile::Values parsed(const QString& path)
{
    const QSettings settings(path, QSettings::IniFormat);
    if (settings.status() != QSettings::NoError)
        return {};
    SettingsFile::Values values;
    for (const QString& key : settings.allKeys()) {
        if (!isOurs(key))
            continue;
        if (const QVariant value = settings.value(key); isOurs(value))
            values.insert(key, value);
    }
    return values;
}

/// Gives the fresh file a later time than the one it replaces: QSettings, in this program and in others,
/// tells by size and time whether what it remembers of a file still holds, and two saves can fall into one
/// tick of the system's clock.
bool outdate(const QString& old, const QString& fresh)
{
    const QDateTime past = QFileInfo(old).lastModified();
    QFile file(fresh);
    return !past.isValid() || past < QFileInfo(fresh).lastModified()
        || (file.open(QIODevice::Append)
            && file.setFileTime(past.addMSecs(1), QFileDevice::FileModificationTime));
}

/// Removes what a save left that was killed on its way.
void removeLeftovers(const QFileInfo& file)
{
    const QStringList names
        = file.dir().entryList({file.fileName() + u".new-*"_s}, QDir::Dirs | QDir::Hidden);
    for (const QString& name : names)
        QDir(file.dir().filePath(name)).removeRecursively();
}

/// Says to other programs that a save is under way, so that none takes it for a leftover. The system takes
/// the word back when this one is killed.
class SavingMark
{
public:
    /// Tidies up first, if nobody else is saving.
    explicit SavingMark(const QFileInfo& file)
        : folder_(open(QFile::encodeName(file.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        if (flock(folder_, LOCK_EX | LOCK_NB) == 0)
            removeLeftovers(file);
        flock(folder_, LOCK_SH);
    }
    SavingMark(const SavingMark&) = delete;
    SavingMark& operator=(const SavingMark&) = delete;
    ~SavingMark()
    {
        if (folder_ >= 0)
            close(folder_);
    }

private:
    const int folder_;
};

} // namespace

QString SettingsFile::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + u"/Quorvel/Quorvel.conf"_s;
}

SettingsFile::Values SettingsFile::read(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > largestFile)
        return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || holdsObjects(file.read(largestFile)))
        return {};
    try {
        return parsed(path);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

bool SettingsFile::replace(const QString& path, const Values& values)
{
    constexpr auto ownersAlone = QFile::ReadOwner | QFile::WriteOwner;
    const QFileInfo info(path);
    const QString folder = info.path();
    QDir().mkpath(folder);
    QFile::setPermissions(folder, ownersAlone | QFile::ExeOwner);

    const SavingMark mark(info);
    const QTemporaryDir workshop(path + u".new-XXXXXX"_s);
    if (!workshop.isValid())
        return false;
    const QString written = workshop.filePath(u"written"_s);
    const QString fresh = workshop.filePath(u"fresh"_s);
    {
        // Without a value to write QSettings would make no file, and the old values would stay.
        if (!QFile(written).open(QIODevice::WriteOnly))
            return false;
        QSettings settings(written, QSettings::IniFormat);
        for (const auto& [key, value] : values.asKeyValueRange())
            settings.setValue(key, value);
    }
    // On a full disk QSettings reports success and leaves a short file, so only what reads back counts; under
    // its own name it would be read from memory.
    return DiskFile::rename(written, fresh) && QFile::setPermissions(fresh, ownersAlone)
        && read(fresh) == values && outdate(path, fresh) && DiskFile::sync(fresh)
        && DiskFile::rename(fresh, path) && DiskFile::sync(folder);
}
