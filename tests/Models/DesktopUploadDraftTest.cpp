#include "DesktopUploadDraft.h"

#include "Rows.h"

#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QList<QUrl> addresses(const QList<DesktopUploadDraft>& drafts)
{
    QList<QUrl> urls;
    for (const DesktopUploadDraft& draft : drafts)
        urls.append(draft.url);
    return urls;
}

QList<AttachedFile> files(const QList<QUrl>& urls)
{
    QList<AttachedFile> files;
    for (const QUrl& url : urls)
        files.append({url});
    return files;
}

TEST(UploadCategories, StandInTheOrderOfTheirPicker)
{
    QStringList rows;
    for (const UploadCategory& category : uploadCategories())
        rows.append(category.value + u'=' + category.label);
    EXPECT_EQ(rows,
        QStringList({u"notarized_document=Notarized Document"_s, u"government_id=Government ID"_s,
            u"supporting_document=Supporting Document"_s, u"apostille_document=Apostille Document"_s}));
}

TEST(AddDrafts, SuggestsLabelAndCategory)
{
    QList<DesktopUploadDraft> drafts;
    addDrafts(drafts, files({QUrl(u"file:///a/./my_power-of_attorney.pdf"_s)}));
    ASSERT_EQ(drafts.size(), 1);
    EXPECT_EQ(drafts[0].url, QUrl(u"file:///a/my_power-of_attorney.pdf"_s));
    EXPECT_EQ(drafts[0].fileName(), u"my_power-of_attorney.pdf"_s);
    EXPECT_EQ(drafts[0].label, u"my power of attorney"_s);
    EXPECT_EQ(drafts[0].category, u"notarized_document"_s);
    EXPECT_FALSE(drafts[0].id.isNull());
}

TEST(AddDrafts, AddsAFileOnceHoweverItIsSpelled)
{
    QList<DesktopUploadDraft> drafts;
    addDrafts(drafts, files({QUrl(u"file:///a/b"_s), QUrl(u"file:///a/c/../b"_s)}));
    addDrafts(drafts, files({QUrl(u"file://localhost/a//b"_s)}));
    EXPECT_EQ(addresses(drafts), QList{QUrl(u"file:///a/b"_s)});
}

TEST(AddDrafts, LeavesEarlierDraftsAsTheyAre)
{
    QList<DesktopUploadDraft> drafts;
    addDrafts(drafts, files({QUrl(u"file:///a/b"_s)}));
    drafts[0].label = u"typed"_s;
    const DesktopUploadDraft before = drafts[0];
    addDrafts(drafts, files({QUrl(u"file:///a/b"_s), QUrl(u"file:///a/c"_s)}));
    ASSERT_EQ(drafts.size(), 2);
    EXPECT_EQ(drafts[0], before);
    EXPECT_NE(drafts[0].id, drafts[1].id);
}

TEST(AddDrafts, IgnoresWhatIsNoLocalFile)
{
    QList<DesktopUploadDraft> drafts;
    addDrafts(drafts,
        files({QUrl(), QUrl(u"https://example.com/a.pdf"_s), QUrl(u"file://otherhost/x"_s),
            QUrl(u"data:,x"_s)}));
    EXPECT_TRUE(drafts.isEmpty());
}

RC_GTEST_PROP(AddDraftsProperty, KeepsOrderAndNeverDoubles, ())
{
    const auto spelling
        = rc::gen::element(u"file:///a"_s, u"file:///b"_s, u"file:///c/../a"_s, u"file:///./b"_s,
            u"file:///c"_s, u"file:////c"_s, u"file:///d"_s, u"http://host/a"_s, u"file://other/a"_s);
    const auto spellings = rc::gen::container<std::vector<QString>>(spelling);
    const std::vector<QString> batches[] = {*spellings, *spellings};

    QList<DesktopUploadDraft> drafts;
    QList<QUrl> expected;
    for (const auto& batch : batches) {
        QList<QUrl> urls;
        for (const QString& address : batch) {
            urls.append(QUrl(address));
            const QUrl url = DesktopFileHelpers::standardized(urls.last());
            if (!url.isEmpty() && !expected.contains(url))
                expected.append(url);
        }
        addDrafts(drafts, files(urls));
    }
    RC_ASSERT(addresses(drafts) == expected);
}

TEST(AddDrafts, KeepsTheSizes)
{
    QList<DesktopUploadDraft> drafts;
    addDrafts(drafts, {{QUrl(u"file:///a"_s), 12}, {QUrl(u"file:///b"_s)}});
    ASSERT_EQ(drafts.size(), 2);
    EXPECT_EQ(drafts[0].size, 12);
    EXPECT_EQ(drafts[1].size, std::nullopt);
}

struct DetailRow : Named
{
    QString fileName;
    std::optional<qint64> size;
    QString detail;
};

class DraftDetail : public testing::TestWithParam<DetailRow>
{ };

TEST_P(DraftDetail, JoinsNameAndSize)
{
    DesktopUploadDraft draft;
    draft.url = QUrl::fromLocalFile(u"/folder/"_s + GetParam().fileName);
    draft.size = GetParam().size;
    EXPECT_EQ(draft.detail(), GetParam().detail);
}

INSTANTIATE_TEST_SUITE_P(Files, DraftDetail,
    testing::Values(DetailRow{{"Usual"}, u"deed.pdf"_s, 2'400'000, u"deed.pdf • 2.4 MB"_s},
        DetailRow{{"Empty"}, u"empty.txt"_s, 0, u"empty.txt • 0 bytes"_s},
        DetailRow{{"NameAsItIsOnDisk"}, u"a%22 \"b\" 😀.pdf"_s, 1, u"a%22 \"b\" 😀.pdf • 1 byte"_s},
        DetailRow{{"Unreadable"}, u"private.pdf"_s, std::nullopt, u"private.pdf"_s}),
    RowName());

} // namespace
