#include "AutostartLoginItem.h"

#include "support/WithoutPrivileges.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

const QString entryName = u"app.example.Notary.desktop"_s;

/// For this long no file of this process can become longer than a few bytes, as on a full disk.
class WithoutRoom
{
public:
    WithoutRoom()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit small = before_;
        small.rlim_cur = 16;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    WithoutRoom(const WithoutRoom&) = delete;
    WithoutRoom& operator=(const WithoutRoom&) = delete;
    ~WithoutRoom() { setrlimit(RLIMIT_FSIZE, &before_); }

private:
    rlimit before_{};
};

class AutostartTest : public testing::Test
{
protected:
    AutostartTest()
    {
        QDir(root.path()).mkpath(u"program"_s);
        makeProgram(program);
    }

    static void write(const QString& path, const QByteArray& content)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    /// A program that tells its own name and arguments into the file that the environment names.
    static void makeProgram(const QString& path)
    {
        write(path, "#!/bin/sh\nprintf '%s\\n' \"$0\" \"$@\" > \"$TOLD\"\n");
        QFile::setPermissions(path,
            QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
    }
    QByteArray content() const
    {
        QFile file(own);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    /// What lies beside the entry, the entry included.
    QStringList names() const
    {
        return QDir(QFileInfo(own).path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir root;
    const QString program = root.filePath(u"program/notary"_s);
    const QString own = root.filePath(u"user/autostart/"_s + entryName);
    const QString forAll = root.filePath(u"system/autostart/"_s + entryName);
    const QString forFew = root.filePath(u"vendor/autostart/"_s + entryName);
    AutostartLoginItem item{u"app.example.Notary"_s, program,
        {root.filePath(u"user"_s), {root.filePath(u"system"_s), root.filePath(u"vendor"_s)}}};
};

struct Entry
{
    const char* name;
    QByteArray text;
    bool isEnabled;
};

void PrintTo(const Entry& entry, std::ostream* out)
{
    *out << entry.name;
}

class AutostartEntry : public AutostartTest, public testing::WithParamInterface<Entry>
{ };

TEST_P(AutostartEntry, CountsAsTheDesktopReadsIt)
{
    write(own, GetParam().text);
    EXPECT_EQ(item.isEnabled(), GetParam().isEnabled);
    QFile::remove(own);
    write(forFew, GetParam().text);
    EXPECT_EQ(item.isEnabled(), GetParam().isEnabled) << "for all users";
}

INSTANTIATE_TEST_SUITE_P(Texts, AutostartEntry,
    testing::Values(Entry{"Plain", "[Desktop Entry]\nType=Application\nExec=notary\n", true},
        Entry{"Empty", "", false}, Entry{"NoGroup", "Exec=notary\n", false},
        Entry{"NoProgram", "[Desktop Entry]\nType=Application\n", false},
        Entry{"Hidden", "[Desktop Entry]\nExec=notary\nHidden=true\n", false},
        Entry{"NotHidden", "[Desktop Entry]\nExec=notary\nHidden=false\n", true},
        Entry{"HiddenWithBlanks", "[Desktop Entry]\nExec=notary\nHidden = true \r\n", false},
        Entry{"HiddenInAComment", "[Desktop Entry]\nExec=notary\n#Hidden=true\n", true},
        Entry{"HiddenElsewhere", "[Desktop Entry]\nExec=notary\n[Desktop Action x]\nHidden=true\n", true},
        Entry{"HiddenBefore", "[Other]\nHidden=true\n[Desktop Entry]\nExec=notary\n", true},
        Entry{"TheLastWordCounts", "[Desktop Entry]\nExec=notary\nHidden=true\nHidden=false\n", true},
        Entry{"OtherLetterCase", "[Desktop Entry]\nExec=notary\nhidden=true\nHidden=TRUE\n", true},
        Entry{"SwitchedOff", "[Desktop Entry]\nExec=notary\nX-GNOME-Autostart-enabled=false\n", false},
        Entry{"SwitchedOn", "[Desktop Entry]\nExec=notary\nX-GNOME-Autostart-enabled=true\n", true},
        Entry{"ProgramGone", "[Desktop Entry]\nExec=notary\nTryExec=/nonexistent/notary\n", false},
        Entry{"ProgramNotFound", "[Desktop Entry]\nExec=notary\nTryExec=no-such-notary-program\n", false},
        Entry{"ProgramThere", "[Desktop Entry]\nExec=notary\nTryExec=/bin/sh\n", true},
        Entry{"ProgramFound", "[Desktop Entry]\nExec=notary\nTryExec=sh\n", true},
        Entry{"Noise", QByteArray(100'000, '\xff'), false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(AutostartTest, AnEntryOfTheUsersOwnCountsBeforeTheOthers)
{
    EXPECT_FALSE(item.isEnabled());
    write(forFew, "[Desktop Entry]\nExec=notary\n");
    EXPECT_TRUE(item.isEnabled());
    write(forAll, "[Desktop Entry]\nExec=notary\nHidden=true\n");
    EXPECT_FALSE(item.isEnabled());
    write(own, "[Desktop Entry]\nExec=notary\n");
    EXPECT_TRUE(item.isEnabled());
}

TEST_F(AutostartTest, RegistersAndUnregisters)
{
    ASSERT_TRUE(item.registerItem());
    EXPECT_TRUE(item.isEnabled());
    EXPECT_EQ(names(), QStringList{entryName});
    struct stat seen
    { };
    ASSERT_EQ(stat(QFile::encodeName(own).constData(), &seen), 0);
    EXPECT_EQ(seen.st_mode & 0777U, 0600U);
    for (const QByteArray& line :
        {QByteArray("[Desktop Entry]"), QByteArray("Type=Application"), QByteArray("Name=Quorvel"),
            QByteArray("Icon=app.example.Notary"), QByteArray("TryExec=" + QFile::encodeName(program)),
            QByteArray("Exec=\"" + QFile::encodeName(program) + "\" --background"),
            QByteArray("X-GNOME-Autostart-enabled=true")})
        EXPECT_TRUE(content().split('\n').contains(line)) << line.toStdString();
    EXPECT_EQ(content().split('\n').constFirst(), "[Desktop Entry]");

    ASSERT_TRUE(item.unregisterItem());
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(names().isEmpty());
    EXPECT_TRUE(item.unregisterItem()) << "nothing is left to do";
}

TEST_F(AutostartTest, WritesNowhereElse)
{
    ASSERT_TRUE(item.registerItem());
    EXPECT_EQ(QDir(root.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
        (QStringList{u"program"_s, u"user"_s}));
}

TEST_F(AutostartTest, SwitchesAHiddenEntryOnAgain)
{
    for (const char* line : {"Hidden=true", "X-GNOME-Autostart-enabled=false"}) {
        write(own, QByteArray("[Desktop Entry]\nExec=notary\n") + line + '\n');
        ASSERT_TRUE(item.registerItem());
        EXPECT_TRUE(item.isEnabled());
    }
}

TEST_F(AutostartTest, HidesAnEntryForAllUsersFromThisOne)
{
    write(forAll, "[Desktop Entry]\nExec=notary\n");
    ASSERT_TRUE(item.unregisterItem());
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(content().contains("\nHidden=true\n"));
    ASSERT_TRUE(item.registerItem());
    EXPECT_TRUE(item.isEnabled());
    EXPECT_FALSE(content().contains("Hidden"));
}

TEST_F(AutostartTest, ReplacesALinkAndLeavesWhatItLedTo)
{
    const QString kept = root.filePath(u"kept"_s);
    write(kept, "mine");
    QDir().mkpath(QFileInfo(own).path());
    QFile::link(kept, own);
    ASSERT_TRUE(item.registerItem());
    EXPECT_FALSE(QFileInfo(own).isSymLink());
    QFile file(kept);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "mine");
}

TEST_F(AutostartTest, SaysSoWhereTheFolderIsReadOnly)
{
    const QString folder = QFileInfo(own).path();
    QDir().mkpath(folder);
    chmod(QFile::encodeName(folder).constData(), 0555);
    chmod(QFile::encodeName(root.path()).constData(), 0755);
    chmod(QFile::encodeName(root.filePath(u"user"_s)).constData(), 0755);
    chmod(QFile::encodeName(QFileInfo(program).path()).constData(), 0755);
    {
        const WithoutPrivileges user;
        EXPECT_FALSE(item.registerItem());
        EXPECT_FALSE(item.isEnabled());
    }
    chmod(QFile::encodeName(folder).constData(), 0755);
    write(own, "[Desktop Entry]\nExec=notary\n");
    chmod(QFile::encodeName(own).constData(), 0644);
    chmod(QFile::encodeName(folder).constData(), 0555);
    {
        const WithoutPrivileges user;
        EXPECT_TRUE(item.isEnabled());
        EXPECT_FALSE(item.unregisterItem());
        EXPECT_TRUE(item.isEnabled());
    }
    chmod(QFile::encodeName(folder).constData(), 0755);
    EXPECT_EQ(names(), QStringList{entryName});
}

TEST_F(AutostartTest, SaysSoWhereAFolderOrAFileIsInTheWay)
{
    QDir().mkpath(own + u"/inner"_s);
    EXPECT_FALSE(item.isEnabled());
    EXPECT_FALSE(item.registerItem());
    EXPECT_EQ(names(), QStringList{entryName});
    QDir(root.filePath(u"user"_s)).removeRecursively();
    write(root.filePath(u"user/autostart"_s), "a file");
    EXPECT_FALSE(item.registerItem());
    EXPECT_FALSE(item.isEnabled());
}

TEST_F(AutostartTest, DoesNotWaitForAPipe)
{
    QDir().mkpath(QFileInfo(own).path());
    ASSERT_EQ(mkfifo(QFile::encodeName(own).constData(), 0600), 0);
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(item.registerItem());
    EXPECT_TRUE(item.isEnabled());
}

TEST_F(AutostartTest, KeepsTheOldEntryWhereTheDiskIsFull)
{
    const QByteArray old = "[Desktop Entry]\nExec=notary\nHidden=true\n";
    write(own, old);
    {
        const WithoutRoom fullDisk;
        EXPECT_FALSE(item.registerItem());
    }
    EXPECT_EQ(content(), old);
    EXPECT_EQ(names(), QStringList{entryName});
    EXPECT_FALSE(item.isEnabled());
}

struct Place
{
    const char* name;
    QByteArray program;
    bool isRefused = false;
};

void PrintTo(const Place& place, std::ostream* out)
{
    *out << place.name;
}

/// Programs in places with odd names, started by the library that desktops start autostart entries with.
class AutostartPlace : public AutostartTest, public testing::WithParamInterface<Place>
{
protected:
    static bool canLaunch()
    {
        QProcess python;
        python.start(interpreter(), {u"-c"_s, u"from gi.repository import Gio; Gio.DesktopAppInfo"_s});
        return python.waitForFinished(-1) && python.exitStatus() == QProcess::NormalExit
            && python.exitCode() == 0;
    }
    /// Starts the entry. \returns the lines that the program has told
    QByteArrayList launched() const
    {
        const QString pipe = root.filePath(u"told"_s);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"TOLD"_s, pipe);
        QProcess python;
        python.setProcessEnvironment(environment);
        python.start(interpreter(),
            {u"-c"_s,
                u"import os, sys\n"
                "from gi.repository import Gio\n"
                "os.mkfifo(os.environ['TOLD'])\n"
                "Gio.DesktopAppInfo.new_from_filename(sys.argv[1]).launch([], None)\n"
                "sys.stdout.buffer.write(open(os.environ['TOLD'], 'rb').read())\n"_s,
                own});
        EXPECT_TRUE(python.waitForFinished(-1));
        EXPECT_EQ(python.readAllStandardError(), QByteArray());
        return python.readAllStandardOutput().split('\n');
    }

    static QString interpreter() { return u"/usr/bin/python3"_s; }
};

TEST_P(AutostartPlace, IsStartedOrRefused)
{
    const QString place = root.filePath(QFile::decodeName(GetParam().program));
    makeProgram(place);
    AutostartLoginItem odd(u"app.example.Notary"_s, place, {root.filePath(u"user"_s), {}});
    EXPECT_EQ(odd.registerItem(), !GetParam().isRefused);
    EXPECT_EQ(odd.isEnabled(), !GetParam().isRefused);
    if (GetParam().isRefused)
        return;
    if (!canLaunch())
        GTEST_SKIP() << "there is no library to start entries with";
    EXPECT_EQ(launched(), (QByteArrayList{QFile::encodeName(place), "--background", ""}));
}

INSTANTIATE_TEST_SUITE_P(Names, AutostartPlace,
    testing::Values(Place{"Plain", "notary"}, Place{"Blank", "my programs/notary"},
        Place{"BlankAtTheEnds", " my programs /notary "}, Place{"Quotes", "a\"b'c/notary"},
        Place{"Dollar", "$HOME/$(id)/notary"}, Place{"Backtick", "`id`/notary"},
        Place{"Percent", "100%/notary", true}, Place{"Backslash", "a\\b\\\\c/\\n\\s/notary\\"},
        Place{"AllOfThem", "\"\\$`';&|<>*?#~()[]{}!/notary"}, Place{"Letters", "Größe/公証人"},
        Place{"EqualsSign", "a=b/notary", true}, Place{"LineBreak", "a\nb/notary", true},
        Place{"Tab", "a\tb/notary", true}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(AutostartTest, RefusesWhatIsNoProgram)
{
    for (const QString& path : {root.filePath(u"missing"_s), root.path(), own}) {
        write(own, "[Desktop Entry]\nExec=notary\nHidden=true\n");
        AutostartLoginItem other(u"app.example.Notary"_s, path, {root.filePath(u"user"_s), {}});
        EXPECT_FALSE(other.registerItem()) << path.toStdString();
        EXPECT_FALSE(other.isEnabled());
    }
}

} // namespace
