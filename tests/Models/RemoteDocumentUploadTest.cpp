#include "RemoteDocumentUpload.h"

#include "Rows.h"

using namespace Qt::StringLiterals;

namespace {

RemoteDocumentUpload document(const QByteArray& json)
{
    return {1, jsonObject(json)};
}

struct NameRow : Named
{
    QByteArray json;
    QString shown;
};

class DocumentName : public testing::TestWithParam<NameRow>
{ };

TEST_P(DocumentName, TellsDocumentsApart)
{
    EXPECT_EQ(document(GetParam().json).displayName(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Names, DocumentName,
    testing::Values(
        NameRow{{"DocumentName"}, R"({"document_name":"Deed","label":"L","file_name":"f.pdf"})", u"Deed"_s},
        NameRow{{"Label"}, R"({"label":" Passport ","file_name":"f.pdf"})", u"Passport"_s},
        NameRow{{"Nothing"}, "{}", u"Session document"_s},
        NameRow{{"FileNameDoesNotCount"}, R"({"file_name":"f.pdf"})", u"Session document"_s},
        NameRow{
            {"CameraPhotos"}, R"({"label":"REMOTE NOTARY CAMERA PHOTOS","file_name":"f.jpg"})", u"f.jpg"_s},
        NameRow{{"CameraPhotosWithBlanks"},
            R"({"document_name":" Remote Notary Camera Photos ","original_filename":" o.jpg "})",
            u" o.jpg "_s},
        NameRow{{"CameraPhotosWithoutFile"}, R"({"label":"remote notary camera photos"})", u"Document"_s},
        NameRow{{"NearlyCameraPhotos"}, R"({"label":"remote notary camera photo"})",
            u"remote notary camera photo"_s}),
    RowName());

struct DetailRow : Named
{
    QByteArray json;
    QString detail;
};

class DocumentDetail : public testing::TestWithParam<DetailRow>
{ };

TEST_P(DocumentDetail, JoinsWhatIsKnown)
{
    EXPECT_EQ(document(GetParam().json).displayDetail(), GetParam().detail);
}

INSTANTIATE_TEST_SUITE_P(Details, DocumentDetail,
    testing::Values(DetailRow{{"Nothing"}, "{}", u"Document"_s},
        DetailRow{{"Everything"}, R"({"original_filename":"a.pdf","file_size":2400000,"created_at":"May 1"})",
            u"a.pdf • 2.4 MB • May 1"_s},
        DetailRow{{"SizeAsText"}, R"({"file_name":"a.pdf","file_size":"2048"})", u"a.pdf • 2 KB"_s},
        DetailRow{{"SizeAsUnreadableText"}, R"({"file_name":"a.pdf","file_size":" 2048"})", u"a.pdf"_s},
        DetailRow{{"SizeAsFraction"}, R"({"file_name":"a.pdf","file_size":12.9})", u"a.pdf • 12 bytes"_s},
        DetailRow{
            {"SizeZero"}, R"({"file_name":"a.pdf","file_size":0,"created_at":"May 1"})", u"a.pdf • May 1"_s},
        DetailRow{{"SizeBelowOne"}, R"({"file_name":"a.pdf","file_size":0.9})", u"a.pdf"_s},
        DetailRow{{"SizeNegative"}, R"({"file_name":"a.pdf","file_size":-5})", u"a.pdf"_s},
        DetailRow{{"SizeOne"}, R"({"file_name":"a.pdf","file_size":1})", u"a.pdf • 1 byte"_s},
        DetailRow{{"BlankTime"}, R"({"file_name":"a.pdf","created_at":" "})", u"a.pdf"_s}),
    RowName());

TEST(RemoteDocumentUpload, PrefersTheOriginalFileName)
{
    EXPECT_EQ(document(R"({"original_filename":"o","file_name":"f"})").fileName(), u"o"_s);
    EXPECT_EQ(document(R"({"original_filename":null,"file_name":"f"})").fileName(), u"f"_s);
    EXPECT_EQ(document("{}").fileName(), u"Document"_s);
}

TEST(RemoteDocumentUpload, EqualsByIdTimeAndSize)
{
    const RemoteDocumentUpload one = document(R"({"created_at":"c","file_size":7,"label":"a"})");
    EXPECT_EQ(one, document(R"({"created_at":"c","file_size":"7","label":"b"})"));
    EXPECT_NE(one, (RemoteDocumentUpload{2, one.raw}));
    EXPECT_NE(one, document(R"({"created_at":"d","file_size":7})"));
    EXPECT_NE(one, document(R"({"created_at":"c","file_size":8})"));
    EXPECT_EQ(document("{}"), document(R"({"file_size":0,"created_at":""})"));
}

} // namespace
