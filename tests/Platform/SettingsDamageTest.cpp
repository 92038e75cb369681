#include "SettingsDefaults.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// Preferences whose file holds what no program of this house has written.
class SettingsDamage : public testing::Test
{
protected:
    void put(const QByteArray& content)
    {
        QFile raw(file);
        ASSERT_TRUE(raw.open(QIODevice::WriteOnly) && raw.write(content) == content.size());
    }

    /// Whatever was found, the next change is kept.
    void expectUsable()
    {
        SettingsDefaults defaults(file);
        defaults.setData(key, "fresh");
        EXPECT_EQ(SettingsDefaults(file).data(key), "fresh");
    }

    QTemporaryDir folder;
    const QString file = folder.filePath(u"Quorvel.conf"_s);
    const QString key = u"QuorvelMac.authUser"_s;
};

TEST_F(SettingsDamage, CountsAsEmpty)
{
    const QByteArray entry("QuorvelMac.authUser=");
    const QByteArray section("[General]\n");
    const QByteArray contents[] = {
        "",
        "\n\n\n",
        section,
        section + entry,
        section + entry + "@Variant(\\0\\0\\0\\t\\x1\\0\\0\\0\\0\\xff\\xff\\xff\\xff)\n",
        section + entry + "@Variant(" + QByteArray(1000, '\xff') + ")\n",
        section + entry + "\"@Variant(\\0\\0\\0\\xb)\"\n",
        section + entry + "a, @Variant(x)\n",
        section + entry + "@DateTime(\\0\\0\\0\\x10)\n",
        section + entry + "@Rect(1 2 3 4)\n",
        section + entry + "@Size(1 2)\n",
        section + entry + "@Point(1 2)\n",
        section + entry + "@Invalid()\n",
        section + entry + "one, two\n",
        section + "other=\\xd800\n",
        section + "other=\"\\xdc00 \\xd800\"\n",
        section + "=1\nother%0a=1\n",
        "[Other]\n" + entry + "@ByteArray(x)\n",
        QByteArray(100'000, '\0'),
        QByteArray(100'000, '['),
        QByteArray(2'000'000, 'a'),
        section + entry + "@ByteArray(" + QByteArray(2'000'000, 'a') + ")\n",
    };
    for (const QByteArray& content : contents) {
        put(content);
        EXPECT_EQ(SettingsDefaults(file).data(key), std::nullopt) << content.left(60).toStdString();
        expectUsable();
    }
}

TEST_F(SettingsDamage, SparesWhatIsSound)
{
    put("[General]\nappearanceMode=dark\nQuorvelMac.authUser=@Rect(1 2 3 4)\nunknown=\"@Size(1 2)\"\n"
        "odd%20key=1\n[Group]\nappearanceMode=light\n");
    SettingsDefaults defaults(file);
    EXPECT_EQ(defaults.string(u"appearanceMode"_s), u"dark"_s);
    expectUsable();
    EXPECT_EQ(SettingsDefaults(file).string(u"appearanceMode"_s), u"dark"_s);
}

/// What merely looks like a serialised object, inside a text, is harmless.
TEST_F(SettingsDamage, IsNotSeenInATextThatSpeaksOfIt)
{
    const QByteArray record("{\"name\":\"x, @Variant(y)\",\"b\":\"=@Variant(\"}");
    SettingsDefaults(file).setData(key, record);
    EXPECT_EQ(SettingsDefaults(file).data(key), record);
    SettingsDefaults(file).setString(key, u"@Variant(x)"_s);
    EXPECT_EQ(SettingsDefaults(file).string(key), u"@Variant(x)"_s);
    SettingsDefaults(file).setString(key, u"a, @Variant(x)"_s);
    EXPECT_EQ(SettingsDefaults(file).string(key), u"a, @Variant(x)"_s);
}

TEST_F(SettingsDamage, ThatIsNoFileIsLeftAlone)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(file).constData(), 0600), 0);
    EXPECT_EQ(SettingsDefaults(file).data(key), std::nullopt);
    QFile::remove(file);
    ASSERT_TRUE(QDir().mkdir(file));
    SettingsDefaults defaults(file);
    defaults.setData(key, "1");
    EXPECT_EQ(defaults.data(key), "1");
    EXPECT_TRUE(QFileInfo(file).isDir());
}

/// A file cut anywhere gives the record, nothing, or a piece that whoever decodes it must refuse; never a
/// crash.
TEST_F(SettingsDamage, MayBeACutAnywhere)
{
    const QByteArray record("{\"idToken\":\"\xc3\xbc \\\" x\",\"email\":\"a@b.c\"}");
    SettingsDefaults(file).setData(key, record);
    QFile raw(file);
    ASSERT_TRUE(raw.open(QIODevice::ReadOnly));
    const QByteArray whole = raw.readAll();
    for (qsizetype length = 0; length < whole.size(); ++length) {
        put(whole.first(length));
        const QByteArray found = SettingsDefaults(file).data(key).value_or(QByteArray());
        EXPECT_TRUE(record.startsWith(found)) << length;
    }
    expectUsable();
}

RC_GTEST_FIXTURE_PROP(SettingsDamage, MayBeAnyBytes, (const std::string& bytes, bool isEntry))
{
    const QByteArray noise = QByteArray::fromStdString(bytes);
    put(isEntry ? "[General]\nQuorvelMac.authUser=" + noise : noise);
    SettingsDefaults defaults(file);
    defaults.setString(u"appearanceMode"_s, u"dark"_s);
    RC_ASSERT(SettingsDefaults(file).string(u"appearanceMode"_s) == u"dark"_s);
}
