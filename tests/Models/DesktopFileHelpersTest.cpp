#include "DesktopUploadDraft.h"
#include "Rows.h"

using namespace Qt::StringLiterals;

namespace {

QUrl file(const QString& name)
{
    return QUrl::fromLocalFile(u"/home/ada/valid/"_s + name);
}

struct EndingRow : Named
{
    QString fileName;
    QString mimeType;
    QString icon;
};

class FileEnding : public testing::TestWithParam<EndingRow>
{ };

TEST_P(FileEnding, DecidesTypeAndIcon)
{
    EXPECT_EQ(DesktopFileHelpers::mimeType(file(GetParam().fileName)), GetParam().mimeType);
    EXPECT_EQ(DesktopFileHelpers::icon(file(GetParam().fileName)), GetParam().icon);
}

const QString plain = u"application/octet-stream"_s;

INSTANTIATE_TEST_SUITE_P(Endings, FileEnding,
    testing::Values(EndingRow{{"Pdf"}, u"a.pdf"_s, u"application/pdf"_s, u"doc.richtext.fill"_s},
        EndingRow{{"PdfInCapitals"}, u"A.PDF"_s, u"application/pdf"_s, u"doc.richtext.fill"_s},
        EndingRow{{"Jpg"}, u"a.jpg"_s, u"image/jpeg"_s, u"photo.fill"_s},
        EndingRow{{"Jpeg"}, u"a.jpeg"_s, u"image/jpeg"_s, u"photo.fill"_s},
        EndingRow{{"Png"}, u"scan.PNG"_s, u"image/png"_s, u"photo.fill"_s},
        EndingRow{{"Heic"}, u"a.heic"_s, u"image/heic"_s, u"photo.fill"_s},
        EndingRow{{"Heif"}, u"a.heif"_s, u"image/heic"_s, u"photo.fill"_s},
        EndingRow{{"Tif"}, u"a.tif"_s, u"image/tiff"_s, u"photo.fill"_s},
        EndingRow{{"Tiff"}, u"a.tiff"_s, u"image/tiff"_s, u"photo.fill"_s},
        EndingRow{{"Doc"}, u"a.doc"_s, u"application/msword"_s, u"doc.text.fill"_s},
        EndingRow{{"Docx"}, u"a.docx"_s,
            u"application/vnd.openxmlformats-officedocument.wordprocessingml.document"_s, u"doc.text.fill"_s},
        EndingRow{{"Xls"}, u"a.xls"_s, u"application/vnd.ms-excel"_s, u"tablecells.fill"_s},
        EndingRow{{"Xlsx"}, u"a.xlsx"_s,
            u"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"_s, u"tablecells.fill"_s},
        EndingRow{{"Txt"}, u"a.txt"_s, u"text/plain"_s, u"doc.fill"_s},
        EndingRow{{"Other"}, u"a.zip"_s, plain, u"doc.fill"_s},
        EndingRow{{"None"}, u"pdf"_s, plain, u"doc.fill"_s},
        EndingRow{{"EndingAlone"}, u".pdf"_s, u"application/pdf"_s, u"doc.richtext.fill"_s},
        EndingRow{{"LastEndingCounts"}, u"a.pdf.zip"_s, plain, u"doc.fill"_s},
        EndingRow{{"TrailingDot"}, u"a.pdf."_s, plain, u"doc.fill"_s}),
    RowName());

struct CategoryRow : Named
{
    QString fileName;
    QString category;
};

class SuggestedCategory : public testing::TestWithParam<CategoryRow>
{ };

TEST_P(SuggestedCategory, FollowsFromTheName)
{
    EXPECT_EQ(DesktopFileHelpers::suggestedCategory(file(GetParam().fileName)), GetParam().category);
}

const QString identity = u"government_id"_s;
const QString notarized = u"notarized_document"_s;
const QString apostille = u"apostille_document"_s;
const QString supporting = u"supporting_document"_s;

INSTANTIATE_TEST_SUITE_P(Names, SuggestedCategory,
    testing::Values(CategoryRow{{"Passport"}, u"Passport.jpg"_s, identity},
        CategoryRow{{"License"}, u"my-LICENSE.png"_s, identity},
        CategoryRow{{"Driver"}, u"driver.pdf"_s, identity}, CategoryRow{{"Id"}, u"ID.pdf"_s, identity},
        CategoryRow{{"Identification"}, u"identification.pdf"_s, identity},
        CategoryRow{{"IdWithinAWord"}, u"video-guide.pdf"_s, identity},
        CategoryRow{{"IdWithinAnother"}, u"residence.pdf"_s, identity},
        CategoryRow{{"IdentityBeforeApostille"}, u"apostille-passport.pdf"_s, identity},
        CategoryRow{{"AffidavitHoldsId"}, u"affidavit.pdf"_s, identity},
        CategoryRow{{"Apostille"}, u"Apostille.pdf"_s, apostille},
        CategoryRow{{"ApostilleBeforeDeed"}, u"deed-apostille.pdf"_s, apostille},
        CategoryRow{{"Poa"}, u"POA.pdf"_s, notarized},
        CategoryRow{{"Power"}, u"my_power-of_attorney.pdf"_s, notarized},
        CategoryRow{{"Jurat"}, u"jurat.pdf"_s, notarized},
        CategoryRow{{"Acknowledgment"}, u"acknowledgment.pdf"_s, notarized},
        CategoryRow{{"Acknowledgement"}, u"acknowledgement.pdf"_s, notarized},
        CategoryRow{{"Closing"}, u"closing.pdf"_s, notarized},
        CategoryRow{{"Deed"}, u"deed.pdf"_s, notarized}, CategoryRow{{"Other"}, u"scan.PNG"_s, supporting},
        CategoryRow{{"FolderDoesNotCount"}, u"a.b"_s, supporting}),
    RowName());

struct LabelRow : Named
{
    QString fileName;
    QString label;
};

class SuggestedLabel : public testing::TestWithParam<LabelRow>
{ };

TEST_P(SuggestedLabel, IsTheNameInWords)
{
    EXPECT_EQ(DesktopFileHelpers::suggestedLabel(file(GetParam().fileName)), GetParam().label);
}

INSTANTIATE_TEST_SUITE_P(Names, SuggestedLabel,
    testing::Values(LabelRow{{"Words"}, u"my_power-of_attorney.pdf"_s, u"my power of attorney"_s},
        LabelRow{{"Plain"}, u"deed.pdf"_s, u"deed"_s}, LabelRow{{"NoExtension"}, u"deed"_s, u"deed"_s},
        LabelRow{{"OnlyLastExtensionGoes"}, u"a.tar.gz"_s, u"a.tar"_s},
        LabelRow{{"Trimmed"}, u"_deed-.pdf"_s, u"deed"_s},
        LabelRow{{"InnerBlanksStay"}, u"a__b.pdf"_s, u"a  b"_s},
        LabelRow{{"NothingLeft"}, u"_-.pdf"_s, u"_-.pdf"_s},
        LabelRow{{"HiddenFile"}, u".notes"_s, u".notes"_s},
        LabelRow{{"Percent"}, u"100%25.pdf"_s, u"100%25"_s}, LabelRow{{"Emoji"}, u"😀_é.pdf"_s, u"😀 é"_s}),
    RowName());

struct AddressRow : Named
{
    QString address;
    QString path; ///< empty where the address is no local file
};

class StandardizedAddress : public testing::TestWithParam<AddressRow>
{ };

TEST_P(StandardizedAddress, IsOneSpellingOfALocalFile)
{
    const QUrl url = DesktopFileHelpers::standardized(QUrl(GetParam().address));
    EXPECT_EQ(url.toLocalFile(), GetParam().path);
    EXPECT_EQ(url.isEmpty(), GetParam().path.isEmpty());
    EXPECT_EQ(DesktopFileHelpers::standardized(url), url);
}

INSTANTIATE_TEST_SUITE_P(Addresses, StandardizedAddress,
    testing::Values(AddressRow{{"Plain"}, u"file:///a/b.pdf"_s, u"/a/b.pdf"_s},
        AddressRow{{"Dots"}, u"file:///a/./c/../b.pdf"_s, u"/a/b.pdf"_s},
        AddressRow{{"AboveTheRoot"}, u"file:///../a"_s, u"/a"_s},
        AddressRow{{"FarAboveTheRoot"}, u"file:///../../a"_s, u"/a"_s},
        AddressRow{{"DoubledSlashes"}, u"file:///a//b.pdf"_s, u"/a/b.pdf"_s},
        AddressRow{{"LeadingSlashes"}, u"file:////a/b.pdf"_s, u"/a/b.pdf"_s},
        AddressRow{{"TrailingSlash"}, u"file:///a/"_s, u"/a"_s},
        AddressRow{{"Localhost"}, u"file://localhost/a"_s, u"/a"_s},
        AddressRow{{"SchemeInCapitals"}, u"FILE:///A"_s, u"/A"_s},
        AddressRow{{"Escapes"}, u"file:///a%20b%25.pdf"_s, u"/a b%.pdf"_s},
        AddressRow{{"QueryAndFragmentGo"}, u"file:///a?x#y"_s, u"/a"_s},
        AddressRow{{"Relative"}, u"file:a/b"_s, {}}, AddressRow{{"OtherHost"}, u"file://otherhost/x"_s, {}},
        AddressRow{{"Http"}, u"http://example.com/a.pdf"_s, {}},
        AddressRow{{"Smb"}, u"smb://host/a.pdf"_s, {}}, AddressRow{{"Data"}, u"data:text/plain,a"_s, {}},
        AddressRow{{"NoScheme"}, u"/a/b.pdf"_s, {}}, AddressRow{{"Nul"}, u"file:///a%00b"_s, {}},
        AddressRow{{"Empty"}, {}, {}}),
    RowName());

} // namespace
