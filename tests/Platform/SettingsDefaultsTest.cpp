#include "SettingsDefaults.h"

#include "SettingsFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class SettingsDefaultsTest : public testing::Test
{
protected:
    QTemporaryDir folder;
    const QString file = folder.filePath(u"config/Quorvel/Quorvel.conf"_s);
    const QString key = u"QuorvelMac.authUser"_s;
};

TEST_F(SettingsDefaultsTest, StartsEmpty)
{
    SettingsDefaults defaults(file);
    EXPECT_EQ(defaults.data(key), std::nullopt);
    EXPECT_EQ(defaults.string(key), std::nullopt);
    defaults.remove(key);
    EXPECT_FALSE(QFileInfo::exists(file));
}

TEST_F(SettingsDefaultsTest, KeepsEveryTypeApart)
{
    SettingsDefaults defaults(file);
    defaults.setData(u"a"_s, "bytes");
    defaults.setString(u"b"_s, u"text"_s);
    for (const bool isReadAnew : {false, true}) {
        SettingsDefaults anew(file);
        const UserDefaults& seen = isReadAnew ? anew : defaults;
        EXPECT_EQ(seen.data(u"a"_s), "bytes");
        EXPECT_EQ(seen.string(u"a"_s), std::nullopt);
        EXPECT_EQ(seen.string(u"b"_s), u"text"_s);
        EXPECT_EQ(seen.data(u"b"_s), std::nullopt);
    }
}

TEST_F(SettingsDefaultsTest, IsOnDiskWhenAChangeReturns)
{
    SettingsDefaults defaults(file);
    defaults.setData(key, "1");
    EXPECT_EQ(SettingsFile::read(file).value(key).toByteArray(), "1");
    defaults.setData(key, "22");
    EXPECT_EQ(SettingsFile::read(file).value(key).toByteArray(), "22");
    defaults.setString(u"appearanceMode"_s, u"dark"_s);
    EXPECT_EQ(SettingsFile::read(file).size(), 2);
    defaults.remove(key);
    EXPECT_FALSE(SettingsFile::read(file).contains(key));
    QFile raw(file);
    ASSERT_TRUE(raw.open(QIODevice::ReadOnly));
    EXPECT_FALSE(raw.readAll().contains("authUser"));
}

TEST_F(SettingsDefaultsTest, IsWhereAndWhatQtExpects)
{
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.filePath(u"config"_s)));
    SettingsDefaults defaults;
    defaults.setData(key, "{\"a\":\"b, c\"}");
    defaults.setString(u"appearanceMode"_s, u"dark"_s);
    EXPECT_TRUE(QFileInfo::exists(file));
    const QSettings settings(u"Quorvel"_s, u"Quorvel"_s);
    EXPECT_EQ(settings.value(key).toByteArray(), "{\"a\":\"b, c\"}");
    EXPECT_EQ(settings.value(u"appearanceMode"_s).toString(), u"dark"_s);
    qputenv("XDG_CONFIG_HOME", before);
}

TEST_F(SettingsDefaultsTest, IsForItsOwnerAloneWhateverTheMask)
{
    const mode_t before = umask(0);
    SettingsDefaults defaults(file);
    defaults.setData(key, "secret");
    QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    defaults.setData(key, "secret again");
    umask(before);
    struct stat status
    { };
    ASSERT_EQ(stat(QFile::encodeName(file).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
    ASSERT_EQ(stat(QFile::encodeName(QFileInfo(file).path()).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U);
}

TEST_F(SettingsDefaultsTest, LeavesNothingElseBehind)
{
    SettingsDefaults defaults(file);
    defaults.setData(key, "1");
    QDir(QFileInfo(file).path()).mkdir(u"Quorvel.conf.new-killed"_s);
    defaults.setData(key, "2");
    EXPECT_EQ(QDir(QFileInfo(file).path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList(u"Quorvel.conf"_s));
}

TEST_F(SettingsDefaultsTest, WorksInMemoryWhereTheFolderCannotBe)
{
    QFile inTheWay(folder.filePath(u"config"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    SettingsDefaults defaults(file);
    defaults.setData(key, "1");
    EXPECT_EQ(defaults.data(key), "1");
    defaults.remove(key);
    EXPECT_EQ(defaults.data(key), std::nullopt);
    EXPECT_EQ(SettingsDefaults(file).data(key), std::nullopt);
}

/// Once there is room again, the next change takes along what the disk has refused.
TEST_F(SettingsDefaultsTest, CatchesUpWithARefusedChange)
{
    const QString obstacle = folder.filePath(u"config"_s);
    QFile inTheWay(obstacle);
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    SettingsDefaults defaults(file);
    defaults.setData(key, "1");
    QFile::remove(obstacle);
    defaults.remove(u"other"_s);
    EXPECT_EQ(SettingsDefaults(file).data(key), "1");
}

TEST_F(SettingsDefaultsTest, KeepsTheLastWholeRecordOfTwoPrograms)
{
    SettingsDefaults first(file);
    SettingsDefaults second(file);
    first.setData(key, "first");
    first.setString(u"appearanceMode"_s, u"dark"_s);
    second.setData(key, "second");
    EXPECT_EQ(SettingsDefaults(file).data(key), "second");
    EXPECT_EQ(SettingsDefaults(file).string(u"appearanceMode"_s), std::nullopt);
    first.setString(u"appearanceMode"_s, u"light"_s);
    EXPECT_EQ(SettingsDefaults(file).data(key), "first");
    EXPECT_EQ(SettingsDefaults(file).string(u"appearanceMode"_s), u"light"_s);
}

TEST_F(SettingsDefaultsTest, KeepsARecordThatIsTooLargeInMemoryOnly)
{
    SettingsDefaults defaults(file);
    defaults.setData(key, "old");
    defaults.setData(key, QByteArray(2'000'000, 'x'));
    EXPECT_EQ(defaults.data(key)->size(), 2'000'000);
    EXPECT_EQ(SettingsDefaults(file).data(key), "old");
}

RC_GTEST_FIXTURE_PROP(SettingsDefaultsTest, ReadsAnyBytesBack, (const std::string& bytes))
{
    const QByteArray data = QByteArray::fromStdString(bytes);
    SettingsDefaults(file).setData(key, data);
    RC_ASSERT(SettingsDefaults(file).data(key) == data);
}

/// Half a surrogate pair is not text; it becomes a replacement character, and harms nothing else.
RC_GTEST_FIXTURE_PROP(SettingsDefaultsTest, ReadsAnyTextBack, (const std::u16string& units))
{
    const QString text = QString::fromUtf8(QString::fromStdU16String(units).toUtf8());
    SettingsDefaults(file).setString(key, QString::fromStdU16String(units));
    RC_ASSERT(SettingsDefaults(file).string(key) == text);
}
