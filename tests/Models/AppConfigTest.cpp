#include "AppConfig.h"

#include "PropertyList.h"
#include "PropertyLists.h"
#include "Rows.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

TEST(AppConfig, HasSecureAddressesWithoutAPath)
{
    const AppConfig config = AppConfig::builtIn();
    for (const QUrl& url : {config.websiteURL, config.secureTokenURL}) {
        EXPECT_EQ(url.scheme(), u"https"_s);
        EXPECT_FALSE(url.host().isEmpty());
        EXPECT_EQ(url.path(), QString());
    }
    EXPECT_TRUE(config.supportEmail.contains(u'@'));
}

TEST(AppConfig, FindsTheBridgeBelowTheWebsite)
{
    const AppConfig config = AppConfig::builtIn();
    EXPECT_EQ(config.bridgeBaseURL.toString(), config.websiteURL.toString() + u"/mobile-bridge/v1"_s);
}

TEST(AppConfig, FindsItsResourcesBesideTheProgram)
{
    const QString folder = AppConfig::builtIn().resourceFolder;
    EXPECT_EQ(QDir::cleanPath(folder),
        QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../share/quorvel"_s));
}

TEST(AppConfig, KeepsNoPathOfAnAddress)
{
    const AppConfig config
        = AppConfig::of(u"https://a.example/"_s, u"https://b.example/"_s, u"c@a.example"_s);
    EXPECT_EQ(config.websiteURL, QUrl(u"https://a.example"_s));
    EXPECT_EQ(config.bridgeBaseURL, QUrl(u"https://a.example/mobile-bridge/v1"_s));
    EXPECT_EQ(config.secureTokenURL, QUrl(u"https://b.example"_s));
    EXPECT_EQ(config.supportEmail, u"c@a.example"_s);
}

TEST(AppConfigDeathTest, EndsTheProgramForWhatIsNoAddress)
{
    const QString good = u"https://a.example"_s;
    for (const QString& address :
        {u""_s, u"a.example"_s, u"https://"_s, u"https://a b"_s, u"https://a:port"_s}) {
        EXPECT_DEATH(AppConfig::of(address, good, {}), "is no address") << address.toStdString();
        EXPECT_DEATH(AppConfig::of(good, address, {}), "is no address") << address.toStdString();
    }
}

class PlistValue : public testing::Test
{
protected:
    PlistValue() { config.resourceFolder = folder.path(); }

    QString path() const { return folder.filePath(u"GoogleService-Info.plist"_s); }
    void write(const QByteArray& list) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        ASSERT_EQ(file.write(list), list.size());
    }
    static QByteArray keyed(const QByteArray& value)
    {
        return PropertyLists::xml("<dict><key>API_KEY</key><string>" + value + "</string></dict>");
    }
    std::optional<QString> value() const { return config.plistValue(u"API_KEY"_s); }

    QTemporaryDir folder;
    AppConfig config;
};

TEST_F(PlistValue, IsReadAnewEachTime)
{
    write(keyed("one"));
    EXPECT_EQ(value(), u"one"_s);
    write(keyed("two"));
    EXPECT_EQ(value(), u"two"_s);
    ASSERT_TRUE(QFile::remove(path()));
    EXPECT_EQ(value(), std::nullopt);
}

TEST_F(PlistValue, IsReadFromBinaryListsToo)
{
    using namespace PropertyLists;
    write(binary({dictionary({1, 2}), text("API_KEY"), text("abc")}));
    EXPECT_EQ(value(), u"abc"_s);
}

TEST_F(PlistValue, IsNothingForAnotherKey)
{
    write(keyed("abc"));
    EXPECT_EQ(config.plistValue(u"OTHER"_s), std::nullopt);
    EXPECT_EQ(config.plistValue(QString()), std::nullopt);
}

TEST_F(PlistValue, IsNothingWithoutAReadableFile)
{
    EXPECT_EQ(value(), std::nullopt);
    config.resourceFolder = u"/nonexistent"_s;
    EXPECT_EQ(value(), std::nullopt);
}

TEST_F(PlistValue, IsNothingForAFolderOrAPipe)
{
    ASSERT_TRUE(QDir().mkdir(path()));
    EXPECT_EQ(value(), std::nullopt);
    ASSERT_TRUE(QDir().rmdir(path()));
    ASSERT_EQ(mkfifo(path().toLocal8Bit().constData(), 0600), 0);
    EXPECT_EQ(value(), std::nullopt);
}

TEST_F(PlistValue, IsNothingForAnEmptyOrAHugeFile)
{
    write({});
    EXPECT_EQ(value(), std::nullopt);
    write(keyed("abc") + QByteArray(PropertyList::maximumSize, ' '));
    EXPECT_EQ(value(), std::nullopt);
    ASSERT_TRUE(QFile::resize(path(), 1LL << 40));
    EXPECT_EQ(value(), std::nullopt);
}

} // namespace
