// The file of the preferences, which any program and any accident may have changed.

#include "SettingsFile.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

void check(bool holds)
{
    if (!holds)
        __builtin_trap();
}

/// In memory where that is possible, for a save waits for the disk.
QString folder()
{
    static const QTemporaryDir made(
        (QDir(u"/dev/shm"_s).exists() ? u"/dev/shm"_s : QDir::tempPath()) + u"/preferences-XXXXXX"_s);
    return made.path();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // A name of its own each time: QSettings remembers files by their names.
    static int number = 0;
    const QString path = folder() + u'/' + QString::number(++number);
    QFile file(path);
    check(file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.close();

    SettingsFile::Values values = SettingsFile::read(path);
    const bool isDue = !values.isEmpty() || number % 64 == 0;
    values.insert(u"appearanceMode"_s, u"dark"_s);
    if (isDue) {
        check(SettingsFile::replace(path, values));
        check(SettingsFile::read(path) == values);
    }
    file.remove();
    return 0;
}
