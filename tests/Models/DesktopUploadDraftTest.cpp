#include "DesktopUploadDraft.h"

#include "Rows.h"

#include <rapidcheck/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QList<QUrl> addresses(const QList<DesktopUploadDraft>& drafts)
{
    QList<QUrl> urls;
    for (const DesktopUploadDraft& draft : drafts)
        urls.append(draft.url);
    return urls;
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
    addDrafts(drafts, {QUrl(u"file:///a/./my_power-of_attorney.pdf"_s)});
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
    addDrafts(drafts, {QUrl(u"file:///a/b"_s), QUrl(u"file:///a/c/../b"_s)});
    addDrafts(drafts, {QUrl(u"file://localhost/a//b"_s)});
    EXPECT_EQ(addresses(drafts), QList{QUrl(u"file:///a/b"_s)});
}

TEST(AddDrafts, LeavesEarlierDraftsAsTheyAre)
{
    QList<DesktopUploadDraft> drafts;
    addDrafts(drafts, {QUrl(u"file:///a/b"_s)});
    drafts[0].label = u"typed"_s;
    const DesktopUploadDraft before = drafts[0];
    addDrafts(drafts, {QUrl(u"file:///a/b"_s), QUrl(u"file:///a/c"_s)});
    ASSERT_EQ(drafts.size(), 2);
    EXPECT_EQ(drafts[0], before);
    EXPECT_NE(drafts[0].id, drafts[1].id);
}

TEST(AddDrafts, IgnoresWhatIsNoLocalFile)
{
    QList<DesktopUploadDraft> drafts;
    addDrafts(drafts,
        {QUrl(), QUrl(u"https://example.com/a.pdf"_s), QUrl(u"file://otherhost/x"_s), QUrl(u"data:,x"_s)});
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
        addDrafts(drafts, urls);
    }
    RC_ASSERT(addresses(drafts) == expected);
}

class DraftDetail : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder.filePath(name); }
    static QString detailOf(const QString& path)
    {
        DesktopUploadDraft draft;
        draft.url = QUrl::fromLocalFile(path);
        return draft.detail();
    }
    static void write(const QString& path, qint64 size)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        ASSERT_TRUE(file.resize(size));
    }

    QTemporaryDir folder;
};

TEST_F(DraftDetail, JoinsNameAndSize)
{
    write(path(u"deed.pdf"_s), 2'400'000);
    EXPECT_EQ(detailOf(path(u"deed.pdf"_s)), u"deed.pdf • 2.4 MB"_s);
}

TEST_F(DraftDetail, ShowsThatAFileIsEmpty)
{
    write(path(u"empty.txt"_s), 0);
    EXPECT_EQ(detailOf(path(u"empty.txt"_s)), u"empty.txt • 0 bytes"_s);
}

TEST_F(DraftDetail, ShowsNamesAsTheyAreOnDisk)
{
    const QString name = u"a%22 \"b\" 😀.pdf"_s;
    write(path(name), 1);
    EXPECT_EQ(detailOf(path(name)), name + u" • 1 byte"_s);
}

TEST_F(DraftDetail, LeavesTheSizeOutOfWhatCannotBeRead)
{
    ASSERT_EQ(mkfifo(path(u"pipe"_s).toLocal8Bit().constData(), 0600), 0);
    EXPECT_EQ(detailOf(path(u"pipe"_s)), u"pipe"_s);
    EXPECT_EQ(detailOf(path(u"missing.pdf"_s)), u"missing.pdf"_s);
    ASSERT_TRUE(QFile::link(path(u"nowhere"_s), path(u"dangling"_s)));
    EXPECT_EQ(detailOf(path(u"dangling"_s)), u"dangling"_s);
    EXPECT_EQ(detailOf(u"/dev/null"_s), u"null"_s);
}

} // namespace
