#include "Models/PropertyLists.h"
#include "Models/Rows.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

// What the build of a client refuses, because what comes of it would be of no use to anybody, or unsafe.

namespace {

/// How a program ended, and what it said about it.
struct End
{
    int code;
    QString words;
};

End run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(-1);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        QString::fromUtf8(process.readAllStandardError()).simplified()};
}

QByteArray dictionary(const QByteArray& members)
{
    return PropertyLists::xml("<dict>" + members + "</dict>");
}

struct ListRow : Named
{
    QByteArray list;
    QString fault; ///< empty for a list that will do
};

class ListOfABuild : public testing::TestWithParam<ListRow>
{ };

TEST_P(ListOfABuild, IsTakenOrRefusedInWords)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"List.plist"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    ASSERT_EQ(file.write(GetParam().list), GetParam().list.size());
    file.close();
    const End end = run(QStringLiteral(PROPERTY_LIST_CHECK), {path});
    const QString& fault = GetParam().fault;
    EXPECT_EQ(end.code, fault.isEmpty() ? 0 : 1);
    EXPECT_EQ(end.words, fault.isEmpty() ? QString() : u"The property list %1 %2"_s.arg(path, fault));
}

const QString unreadable = u"cannot be read: it is no property list with a dictionary at its root."_s;
const QString withoutKey
    = u"holds no text under API_KEY. Without it nobody stays signed in for longer than an hour."_s;

INSTANTIATE_TEST_SUITE_P(Lists, ListOfABuild,
    testing::Values(ListRow{{"Good"}, dictionary("<key>API_KEY</key><string>abc</string>"), {}},
        ListRow{{"GoodAndMarked"}, "\xEF\xBB\xBF" + dictionary("<key>API_KEY</key><string>abc</string>"), {}},
        ListRow{{"Empty"}, "", unreadable}, ListRow{{"Words"}, "API_KEY=abc", unreadable},
        ListRow{{"OtherRoot"}, PropertyLists::xml("<string>API_KEY</string>"), unreadable},
        ListRow{{"WithoutKey"}, dictionary("<key>OTHER</key><string>abc</string>"), withoutKey},
        ListRow{{"EmptyKey"}, dictionary("<key>API_KEY</key><string></string>"), withoutKey},
        ListRow{{"NumberAsKey"}, dictionary("<key>API_KEY</key><integer>1</integer>"), withoutKey},
        ListRow{{"TooLarge"}, QByteArray(65'537, ' '),
            u"is larger than 65536 bytes, the most that the client reads."_s}),
    RowName());

TEST(ListOfABuildMissing, IsRefusedInWords)
{
    const End end = run(QStringLiteral(PROPERTY_LIST_CHECK), {u"/nonexistent/List.plist"_s});
    EXPECT_EQ(end.code, 1);
    EXPECT_TRUE(end.words.startsWith(u"The property list /nonexistent/List.plist cannot be opened: "_s));
}

struct AddressRow : Named
{
    QString variable;
    QString value;
    bool isTaken;
};

class AddressOfABuild : public testing::TestWithParam<AddressRow>
{ };

TEST_P(AddressOfABuild, IsTakenOrRefusedInWords)
{
    const QString definition = u"-D%1=%2"_s.arg(GetParam().variable, GetParam().value);
    const End end
        = run(QStringLiteral(CMAKE_PROGRAM), {definition, u"-P"_s, QStringLiteral(SERVICE_ADDRESSES)});
    EXPECT_EQ(end.code == 0, GetParam().isTaken);
    EXPECT_EQ(end.words.contains(GetParam().variable + u" "_s), !GetParam().isTaken)
        << end.words.toStdString();
}

const QString website = u"QUORVEL_WEBSITE_URL"_s;
const QString tokens = u"QUORVEL_SECURE_TOKEN_URL"_s;
const QString support = u"QUORVEL_SUPPORT_EMAIL"_s;

INSTANTIATE_TEST_SUITE_P(Addresses, AddressOfABuild,
    testing::Values(AddressRow{{"Website"}, website, u"https://www.example.com"_s, true},
        AddressRow{{"WebsiteWithPortAndSlash"}, website, u"https://www.example.com:8443/"_s, true},
        AddressRow{{"PlainHttp"}, website, u"http://www.example.com"_s, false},
        AddressRow{{"NoScheme"}, website, u"www.example.com"_s, false},
        AddressRow{{"OtherScheme"}, website, u"ftp://www.example.com"_s, false},
        AddressRow{{"Path"}, website, u"https://www.example.com/app"_s, false},
        AddressRow{{"UserInformation"}, website, u"https://me@www.example.com"_s, false},
        AddressRow{{"NoHost"}, website, u"https://"_s, false},
        AddressRow{{"Tokens"}, tokens, u"https://tokens.example.com"_s, true},
        AddressRow{{"TokensInTheClear"}, tokens, u"http://tokens.example.com"_s, false},
        AddressRow{{"Support"}, support, u"help@example.com"_s, true},
        AddressRow{{"SupportWithoutHost"}, support, u"help"_s, false},
        AddressRow{{"SupportWithSubject"}, support, u"help@example.com?subject=x"_s, false}),
    RowName());

} // namespace
