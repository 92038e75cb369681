#include "Multipart.h"

#include "Models/Generators.h"
#include "Models/Rows.h"
#include "support/FakeWebSession.h"
#include "support/FormReader.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString boundary = u"Boundary-7E57"_s;

/// Files with given bytes, in a folder that goes with this object.
class Files
{
public:
    MultipartFile add(const QString& fieldName, const QString& fileName, const QByteArray& bytes)
    {
        const QString path = folder_.filePath(QString::number(count_++));
        QFile file(path);
        if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("a file of the test cannot be written");
        return {fieldName, fileName, u"application/pdf"_s, {path, bytes.size()}};
    }

private:
    QTemporaryDir folder_;
    int count_ = 0;
};

std::optional<QList<FormPart>> partsOf(const RequestBody& body)
{
    return readForm(bytesOf(body), boundary.toUtf8());
}

FormPart fieldPart(const QString& name, const QString& value)
{
    return {"Content-Disposition: form-data; name=\"" + name.toUtf8() + '"', value.toUtf8()};
}

FormPart filePart(const MultipartFile& file, const QByteArray& bytes)
{
    return {"Content-Disposition: form-data; name=\"" + file.fieldName.toUtf8() + "\"; filename=\""
            + file.fileName.toUtf8() + "\"\r\nContent-Type: " + file.mimeType.toUtf8(),
        bytes};
}

TEST(MultipartBody, HasExactlyTheseBytes)
{
    Files files;
    const FormFields fields{{u"source"_s, u"desktop"_s}, {u"label"_s, u"Größe \"A\""_s}};
    const QList<MultipartFile> two{
        files.add(u"desktop_files[]"_s, u"deed.pdf"_s, QByteArray("%PDF\r\n\0\xFF", 8)),
        files.add(u"desktop_files[]"_s, u"empty.pdf"_s, {}),
    };
    const RequestBody body = makeMultipartBody(boundary, fields, two);
    const QByteArray expected = QByteArray("--Boundary-7E57\r\n"
                                           "Content-Disposition: form-data; name=\"source\"\r\n"
                                           "\r\n"
                                           "desktop\r\n"
                                           "--Boundary-7E57\r\n"
                                           "Content-Disposition: form-data; name=\"label\"\r\n"
                                           "\r\n"
                                           "Größe \"A\"\r\n"
                                           "--Boundary-7E57\r\n"
                                           "Content-Disposition: form-data; name=\"desktop_files[]\"; "
                                           "filename=\"deed.pdf\"\r\n"
                                           "Content-Type: application/pdf\r\n"
                                           "\r\n"
                                           "%PDF\r\n")
        + QByteArray("\0\xFF", 2)
        + QByteArray("\r\n"
                     "--Boundary-7E57\r\n"
                     "Content-Disposition: form-data; name=\"desktop_files[]\"; filename=\"empty.pdf\"\r\n"
                     "Content-Type: application/pdf\r\n"
                     "\r\n"
                     "\r\n"
                     "--Boundary-7E57--\r\n");
    EXPECT_EQ(bytesOf(body), expected);
    EXPECT_EQ(body.size(), expected.size());
}

struct NameRow : Named
{
    QString text;
    QByteArray sent;
};

class MultipartNames : public testing::TestWithParam<NameRow>
{ };

TEST_P(MultipartNames, StayOnTheirLineAndAreElseAsTheyAre)
{
    Files files;
    const NameRow& row = GetParam();
    const QList<MultipartFile> one{files.add(row.text, row.text, "%PDF")};
    const RequestBody body = makeMultipartBody(boundary, {{row.text, u"a\r\nb"_s}}, one);
    const QList<FormPart> expected{{"Content-Disposition: form-data; name=\"" + row.sent + '"', "a\r\nb"},
        {"Content-Disposition: form-data; name=\"" + row.sent + "\"; filename=\"" + row.sent
                + "\"\r\nContent-Type: application/pdf",
            "%PDF"}};
    EXPECT_EQ(partsOf(body), expected);
}

INSTANTIATE_TEST_SUITE_P(Names, MultipartNames,
    testing::Values(NameRow{{"EmptyLine"}, u"two\r\n\r\nblank.pdf"_s, "two%0D%0A%0D%0Ablank.pdf"},
        NameRow{{"ForgedPart"}, u"a.pdf\"\r\n\r\nFORGED"_s, "a.pdf\"%0D%0A%0D%0AFORGED"},
        NameRow{{"LineFeed"}, u"a\nb"_s, "a%0Ab"}, NameRow{{"CarriageReturn"}, u"a\rb"_s, "a%0Db"},
        NameRow{{"PercentSigns"}, u"100%0A%.pdf"_s, "100%0A%.pdf"},
        NameRow{{"Quote"}, u"a\"b\\c"_s, "a\"b\\c"}, NameRow{{"BeyondAscii"}, u"Zoë 😀.pdf"_s, "Zoë 😀.pdf"}),
    RowName());

TEST(MultipartBody, IsJustTheClosingDelimiterWithoutParts)
{
    EXPECT_EQ(bytesOf(makeMultipartBody(boundary, {}, {})), "--Boundary-7E57--\r\n");
}

TEST(MultipartBody, LeavesFilesOnDiskUntilTheyAreSent)
{
    Files files;
    const MultipartFile file = files.add(u"f"_s, u"a.pdf"_s, "first");
    const RequestBody body = makeMultipartBody(boundary, {}, {file});
    QFile onDisk(file.data.path);
    ASSERT_TRUE(onDisk.open(QFile::WriteOnly));
    onDisk.write("later");
    onDisk.close();
    EXPECT_EQ(partsOf(body), QList<FormPart>{filePart(file, "later")});
}

class FileNames : public testing::TestWithParam<QString>
{ };

TEST_P(FileNames, TravelAsTheyAre)
{
    Files files;
    const MultipartFile file = files.add(u"f"_s, GetParam(), "bytes");
    const RequestBody body = makeMultipartBody(boundary, {}, {file});
    EXPECT_EQ(partsOf(body), QList<FormPart>{filePart(file, "bytes")});
    EXPECT_TRUE(bytesOf(body).contains("filename=\"" + GetParam().toUtf8() + "\"\r\n"));
}

INSTANTIATE_TEST_SUITE_P(Unusual, FileNames,
    testing::Values(u"a\"b.pdf"_s, u"back\\slash.pdf"_s, u"per%22cent.pdf"_s, u"😀.pdf"_s,
        u"Ünïcode "_s + QChar(0x202E) + u".pdf"_s, QString(251, u'x') + u".pdf"_s, u"--Boundary-7E57"_s));

/// Texts without the line ends that no part's head can hold.
rc::Gen<QString> oneLine()
{
    return rc::gen::map(Generate::text(), [](QString text) {
        text.remove(u'\r');
        return text.remove(u'\n');
    });
}

rc::Gen<QByteArray> anyBytes()
{
    // Line ends and dashes often, so that contents come close to delimiters.
    const auto byte = rc::gen::oneOf(rc::gen::arbitrary<char>(), rc::gen::element('\r', '\n', '-', 'B'));
    return rc::gen::map(rc::gen::container<std::string>(byte),
        [](const std::string& bytes) { return QByteArray::fromStdString(bytes); });
}

RC_GTEST_PROP(MultipartProperty, AServerReadsBackWhatWasPutIn, ())
{
    const auto fields = *rc::gen::container<std::vector<std::pair<QString, QString>>>(
        rc::gen::pair(oneLine(), Generate::text()));
    const auto contents = *rc::gen::container<std::vector<std::pair<QString, QByteArray>>>(
        rc::gen::pair(oneLine(), anyBytes()));
    Files onDisk;
    QList<FormPart> expected;
    for (const auto& [name, value] : fields)
        expected += fieldPart(name, value);
    QList<MultipartFile> files;
    for (const auto& [name, bytes] : contents) {
        files += onDisk.add(u"desktop_files[]"_s, name, bytes);
        expected += filePart(files.last(), bytes);
    }
    const RequestBody body = makeMultipartBody(boundary, FormFields(fields.begin(), fields.end()), files);
    RC_ASSERT(partsOf(body) == expected);
}

} // namespace
