#include "SettingsChildren.h"

#include "SettingsDefaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <ctime>

using namespace Qt::StringLiterals;

QByteArray numberedRecord(int number)
{
    const int length = number * 7919 % 20'000;
    return "{\"n\":" + QByteArray::number(number) + ",\"fill\":\""
        + QByteArray(length, char('a' + number % 26)) + "\"}";
}

std::optional<int> numberOf(const QByteArray& record)
{
    const int number = record.mid(5, record.indexOf(',') - 5).toInt();
    return record == numberedRecord(number) ? std::optional(number) : std::nullopt;
}

namespace {

/// Has the kernel kill this process, wherever it then is.
bool dieAfter(long microseconds)
{
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    timer_t timer{};
    itimerspec when{};
    when.it_value.tv_sec = microseconds / 1'000'000;
    when.it_value.tv_nsec = microseconds % 1'000'000 * 1000;
    return timer_create(CLOCK_MONOTONIC, &event, &timer) == 0 && timer_settime(timer, 0, &when, nullptr) == 0;
}

int saveUntilKilled(const QString& file, long microseconds)
{
    SettingsDefaults defaults(file);
    int number = numberOf(defaults.data(recordKey()).value_or(QByteArray())).value_or(0);
    if (!dieAfter(microseconds))
        return childCannot;
    for (;;) {
        ++number;
        defaults.setData(recordKey(), numberedRecord(number));
        std::printf("%d\n", number);
        std::fflush(stdout);
    }
}

#define CHECK(condition)                                                                                     \
    if (!(condition)) {                                                                                      \
        std::fprintf(stderr, "line %d: %s\n", __LINE__, #condition);                                         \
        return childFailed;                                                                                  \
    }

/// A disk of 128 KiB that only this process sees.
bool mountSmallDisk(const char* folder)
{
    if (unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
        && mount("none", folder, "tmpfs", 0, "size=128k") == 0;
}

/// Fills the disk but for so many bytes.
void fillDisk(const QString& path, qint64 room)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return;
    const QByteArray page(4096, 'x');
    while (file.write(page) == page.size()) { }
    file.resize(std::max<qint64>(0, file.size() / 4096 * 4096 - room));
}

int saveOnFullDisk(const char* folder)
{
    if (!mountSmallDisk(folder))
        return childCannot;
    const QString root = QFile::decodeName(folder);
    const QString file = root + u"/Quorvel/Quorvel.conf"_s;
    const QString filler = root + u"/filler"_s;
    const QByteArray old("{\"token\":\"old\"}");
    for (const qint64 kibibytes : {0, 4, 8, 16}) {
        for (const int size : {10, 5'000, 12'000, 40'000}) {
            SettingsDefaults defaults(file);
            defaults.setData(recordKey(), old);
            CHECK(SettingsDefaults(file).data(recordKey()) == old);
            fillDisk(filler, kibibytes * 1024);

            const QByteArray fresh(size, 'n');
            defaults.setData(recordKey(), fresh);
            CHECK(defaults.data(recordKey()) == fresh);
            const auto stored = SettingsDefaults(file).data(recordKey());
            CHECK(stored == old || stored == fresh);
            if (size > kibibytes * 1024)
                CHECK(stored == old);

            QFile::remove(filler);
            defaults.setString(u"appearanceMode"_s, u"dark"_s);
            CHECK(SettingsDefaults(file).data(recordKey()) == fresh);
            CHECK(
                QDir(QFileInfo(file).path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size() == 1);
        }
    }
    return 0;
}

/// Whoever signs out must not be signed in again at the next start, because there was no room to forget them.
int forgetOnFullDisk(const char* folder)
{
    if (!mountSmallDisk(folder))
        return childCannot;
    const QString root = QFile::decodeName(folder);
    const QString file = root + u"/Quorvel/Quorvel.conf"_s;
    const QString filler = root + u"/filler"_s;
    for (const qint64 kibibytes : {0, 4, 8, 16}) {
        SettingsDefaults defaults(file);
        defaults.setString(u"appearanceMode"_s, u"dark"_s);
        defaults.setData(recordKey(), QByteArray(20'000, 't'));
        fillDisk(filler, kibibytes * 1024);

        defaults.remove(recordKey());
        CHECK(!SettingsDefaults(file).data(recordKey()));
        CHECK(SettingsDefaults(file).string(u"appearanceMode"_s) == u"dark"_s);
        QFile::remove(filler);
    }
    return 0;
}

/// A home that has become read-only: nothing on it changes, and the program works on.
int saveOnReadOnlyDisk(const char* folder)
{
    if (!mountSmallDisk(folder))
        return childCannot;
    const QString file = QFile::decodeName(folder) + u"/Quorvel/Quorvel.conf"_s;
    const QByteArray old("{\"token\":\"old\"}");
    SettingsDefaults defaults(file);
    defaults.setData(recordKey(), old);
    CHECK(mount("none", folder, nullptr, MS_REMOUNT | MS_RDONLY, "size=128k") == 0);

    defaults.setData(recordKey(), "new");
    CHECK(defaults.data(recordKey()) == "new");
    CHECK(SettingsDefaults(file).data(recordKey()) == old);
    defaults.remove(recordKey());
    CHECK(!defaults.data(recordKey()));
    CHECK(SettingsDefaults(file).data(recordKey()) == old);
    return 0;
}

int saveShortFiles(const char* folder)
{
    const QString file = QFile::decodeName(folder) + u"/Quorvel/Quorvel.conf"_s;
    const QByteArray old("{\"token\":\"old\"}");
    const QByteArray fresh(20'000, 'n');
    SettingsDefaults defaults(file);
    defaults.setData(recordKey(), old);

    std::signal(SIGXFSZ, SIG_IGN);
    rlimit page{4096, RLIM_INFINITY};
    CHECK(setrlimit(RLIMIT_FSIZE, &page) == 0);
    defaults.setData(recordKey(), fresh);
    CHECK(defaults.data(recordKey()) == fresh);
    CHECK(SettingsDefaults(file).data(recordKey()) == old);

    page.rlim_cur = RLIM_INFINITY;
    CHECK(setrlimit(RLIMIT_FSIZE, &page) == 0);
    defaults.setString(u"appearanceMode"_s, u"dark"_s);
    CHECK(SettingsDefaults(file).data(recordKey()) == fresh);
    return 0;
}

} // namespace

int runSettingsChild(int count, char** arguments)
{
    const QByteArray task(count > 0 ? arguments[0] : "");
    if (task == "save" && count == 3)
        return saveUntilKilled(QFile::decodeName(arguments[1]), std::atol(arguments[2]));
    if (task == "full-disk" && count == 2)
        return saveOnFullDisk(arguments[1]);
    if (task == "forget-on-full-disk" && count == 2)
        return forgetOnFullDisk(arguments[1]);
    if (task == "read-only-disk" && count == 2)
        return saveOnReadOnlyDisk(arguments[1]);
    if (task == "short-files" && count == 2)
        return saveShortFiles(arguments[1]);
    return childFailed;
}
