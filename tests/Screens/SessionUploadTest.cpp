#include "FailureKinds.h"
#include "SessionDocumentsTest.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class SessionUploadTest : public SessionDocumentsTest
{
protected:
    QList<QString> alert() const { return alertOf(*model); }
};

const QString unreadable
    = u"One of the attached files could not be read. It may have been moved or deleted."_s;

FormPart field(const QByteArray& name, const QByteArray& value)
{
    return {"Content-Disposition: form-data; name=\"" + name + "\"", value};
}

TEST_F(SessionUploadTest, SendsOneFileARequestInTheirOrder)
{
    attachThree();
    upload();
    const QList<QString> names{u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s};
    for (qsizetype k = 0; k < 3; ++k) {
        ASSERT_EQ(requestCount(), k + 1) << "one after another, never side by side";
        EXPECT_EQ(line(k), u"POST /remote-notary/sessions/7/documents"_s);
        EXPECT_EQ(header(k, "Authorization"), "Bearer priyaraman-token");
        EXPECT_EQ(fileOf(k), names.at(k));
        EXPECT_EQ(progress(), u"Uploading %1 of 3: "_s.arg(k + 1) + names.at(k));
        EXPECT_TRUE(model->isUploadingFiles.value());
        EXPECT_EQ(pendingNames(), names) << "they are in the list until the last one has arrived";
        answer(k, "{}");
    }
    ASSERT_EQ(requestCount(), 4);
    EXPECT_FALSE(model->isUploadingFiles.value());
    EXPECT_EQ(progress(), u"Upload complete."_s);
    EXPECT_EQ(model->uploadProgress.value(), 1);
    EXPECT_EQ(pendingNames(), none);
    EXPECT_EQ(line(3), u"GET /remote-notary/sessions/7/documents"_s);
    answer(3, documents({"a", "b", "c"}));
    EXPECT_EQ(documentNames(), (QList<QString>{u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(alert(), none);
}

TEST_F(SessionUploadTest, PreparesFirst)
{
    attach(u"a.pdf"_s);
    QList<QString> texts;
    const auto note = model->uploadProgressText.addNotifier([&] { texts += progress(); });
    upload();
    EXPECT_EQ(texts, (QList<QString>{u"Preparing files..."_s, u"Uploading 1 of 1: a.pdf"_s}));
    answer(0, "{}");
    answer(1, "[]");
}

TEST_F(SessionUploadTest, SendsAFileUnderItsNameTypeLabelAndCategory)
{
    attach(u"my_\"power\"-of_attorney <b>é😀.pdf"_s, QByteArray("\0\r\n--Boundary", 13));
    const QUuid id = model->pendingUploads().constFirst().id;
    model->setUploadLabel(id, u" Closing \"A\" "_s);
    model->setUploadCategory(id, u"apostille_document"_s);
    upload();
    const QList<FormPart> expected{
        field("source", "macos_desktop_drag_drop"),
        field("document_label", "Closing \"A\""),
        field("document_category", "apostille_document"),
        field("file_count", "1"),
        field("file_labels[0]", "Closing \"A\""),
        field("file_categories[0]", "apostille_document"),
        {QByteArray("Content-Disposition: form-data; name=\"desktop_files[]\"; filename=\"")
                + u"my_\"power\"-of_attorney <b>é😀.pdf"_s.toUtf8() + "\"\r\nContent-Type: application/pdf",
            QByteArray("\0\r\n--Boundary", 13)},
    };
    EXPECT_EQ(form(0), expected);
    EXPECT_EQ(header(0, "Accept"), "application/json");
    answer(0, "{}");
    answer(1, "[]");
}

TEST_F(SessionUploadTest, SendsTheLabelAndTheTypeOfTheMomentAtWhichAFilesTurnComes)
{
    attachThree();
    upload();
    model->setUploadLabel(model->pendingUploads().at(1).id, u"Typed meanwhile"_s);
    model->setUploadCategory(model->pendingUploads().at(1).id, u"government_id"_s);
    answer(0, "{}");
    EXPECT_TRUE(form(1).contains(field("document_label", "Typed meanwhile")));
    EXPECT_TRUE(form(1).contains(field("document_category", "government_id")));
    answer(1, "{}");
    answer(2, "{}");
    answer(3, "[]");
}

TEST_F(SessionUploadTest, ADoublePressSendsOnce)
{
    attachThree();
    launch(model->uploadPendingFiles());
    launch(model->uploadPendingFiles());
    settle();
    upload();
    EXPECT_EQ(requestCount(), 1);
    answer(0, "{}");
    EXPECT_EQ(requestCount(), 2);
    upload();
    EXPECT_EQ(requestCount(), 2);
    answer(1, "{}");
    answer(2, "{}");
    answer(3, "[]");
    EXPECT_EQ(requestCount(), 4);
}

TEST_F(SessionUploadTest, NothingPendingIsNothingToDo)
{
    upload();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_EQ(progress(), QString());
    EXPECT_FALSE(model->isUploadingFiles.value());
}

TEST_F(SessionUploadTest, EachFileMovesTheProgressByItsShare)
{
    attachThree();
    upload();
    EXPECT_EQ(model->uploadProgress.value(), 0);
    webSession->reportProgress(0, 5, 10);
    EXPECT_DOUBLE_EQ(model->uploadProgress.value(), 1.0 / 6);
    webSession->reportProgress(0, 400, 400);
    EXPECT_DOUBLE_EQ(model->uploadProgress.value(), 1.0 / 3) << "what surrounds the file does not count";
    answer(0, "{}");
    webSession->reportProgress(1, 10, 20);
    EXPECT_DOUBLE_EQ(model->uploadProgress.value(), 0.5);
    answer(1, "{}");
    answer(2, "{}");
    EXPECT_EQ(model->uploadProgress.value(), 1);
    answer(3, "[]");
}

TEST_F(SessionUploadTest, EmptyFilesAreSent)
{
    attach(u"empty.pdf"_s, {});
    upload();
    webSession->reportProgress(0, 0, 0);
    EXPECT_EQ(model->uploadProgress.value(), 0);
    answer(0, "{}");
    EXPECT_EQ(progress(), u"Upload complete."_s);
    answer(1, "[]");
}

TEST_F(SessionUploadTest, FilesAddedMeanwhileWaitForTheNextPress)
{
    attachThree();
    upload();
    attach(u"d.pdf"_s);
    attach(u"a.pdf"_s);
    for (qsizetype k = 0; k < 3; ++k) {
        EXPECT_EQ(progress(), u"Uploading %1 of 3: "_s.arg(k + 1) + fileOf(k));
        answer(k, "{}");
    }
    EXPECT_EQ(line(3), u"GET /remote-notary/sessions/7/documents"_s);
    answer(3, "[]");
    EXPECT_EQ(pendingNames(), QList<QString>{u"d.pdf"_s});
    EXPECT_TRUE(model->hasUnsentWork());
    upload();
    EXPECT_EQ(fileOf(4), u"d.pdf"_s);
    EXPECT_EQ(progress(), u"Uploading 1 of 1: d.pdf"_s);
    answer(4, "{}");
    answer(5, "[]");
    EXPECT_EQ(pendingNames(), none);
}

TEST_F(SessionUploadTest, AFileTakenOffTheListMeanwhileIsNotSent)
{
    attachThree();
    upload();
    model->removeUpload(model->pendingUploads().at(1).id);
    answer(0, "{}");
    EXPECT_EQ(fileOf(1), u"c.pdf"_s);
    EXPECT_EQ(progress(), u"Uploading 3 of 3: c.pdf"_s);
    answer(1, "{}");
    answer(2, "[]");
    EXPECT_EQ(progress(), u"Upload complete."_s);
}

TEST_F(SessionUploadTest, AListClearedMeanwhileEndsWithTheFileUnderWay)
{
    attachThree();
    upload();
    model->clearUploads();
    answer(0, "{}");
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions/7/documents"_s);
    answer(1, documents({"a"}));
    EXPECT_EQ(progress(), u"Upload complete."_s);
    EXPECT_FALSE(model->isUploadingFiles.value());
}

TEST_F(SessionUploadTest, NewFilesEndWhatIsSaidOfTheLastUpload)
{
    attach(u"a.pdf"_s);
    upload();
    answer(0, "{}");
    answer(1, "[]");
    EXPECT_EQ(progress(), u"Upload complete."_s);
    attach(u"b.pdf"_s);
    EXPECT_EQ(progress(), QString());
    EXPECT_EQ(model->uploadProgress.value(), 0);
}

class SessionUploadFailure : public SessionUploadTest, public testing::WithParamInterface<FailureKind>
{
protected:
    bool isExpiry() const { return GetParam().message.isEmpty(); }
    void happenTo(qsizetype number)
    {
        GetParam().happen(*webSession, number);
        settle();
    }
    QList<QString> alertUnder(const QString& title) const
    {
        return isExpiry() ? none : QList<QString>{title, GetParam().message};
    }
};

TEST_P(SessionUploadFailure, OfTheFirstFileKeepsThemAll)
{
    attachThree();
    upload();
    happenTo(0);
    EXPECT_EQ(requestCount(), 1) << "neither the other files nor the list";
    EXPECT_EQ(alert(), alertUnder(u"Cannot Upload File"_s));
    EXPECT_EQ(auth.isSignedIn(), !isExpiry());
    EXPECT_FALSE(model->isUploadingFiles.value());
    EXPECT_EQ(pendingNames(), (QList<QString>{u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s}));
    EXPECT_EQ(model->uploadProgress.value(), 0);
}

TEST_P(SessionUploadFailure, InTheMiddleKeepsWhatHasNotArrivedForTheNextPress)
{
    attachThree();
    upload();
    answer(0, "{}");
    happenTo(1);
    EXPECT_EQ(alert(), alertUnder(u"Cannot Upload File"_s));
    EXPECT_EQ(pendingNames(), (QList<QString>{u"b.pdf"_s, u"c.pdf"_s}));
    EXPECT_FALSE(model->isUploadingFiles.value());
    if (isExpiry()) {
        EXPECT_EQ(requestCount(), 2);
        return;
    }
    EXPECT_EQ(progress(), QString());
    ASSERT_EQ(requestCount(), 3);
    EXPECT_EQ(line(2), u"GET /remote-notary/sessions/7/documents"_s) << "the file that arrived is to be seen";
    answer(2, documents({"a"}));
    upload();
    EXPECT_EQ(fileOf(3), u"b.pdf"_s);
    EXPECT_EQ(progress(), u"Uploading 1 of 2: b.pdf"_s);
    answer(3, "{}");
    EXPECT_EQ(fileOf(4), u"c.pdf"_s);
    answer(4, "{}");
    answer(5, "[]");
    EXPECT_EQ(pendingNames(), none);
}

TEST_P(SessionUploadFailure, OfTheListAfterwardsTakesNothingBack)
{
    attach(u"a.pdf"_s);
    upload();
    answer(0, "{}");
    happenTo(1);
    EXPECT_EQ(alert(), alertUnder(u"Cannot Load Files"_s));
    EXPECT_EQ(auth.isSignedIn(), !isExpiry());
    EXPECT_EQ(progress(), u"Upload complete."_s);
    EXPECT_EQ(pendingNames(), none);
}

TEST_P(SessionUploadFailure, OfTheListAfterAFailedUploadHidesNothing)
{
    attachThree();
    upload();
    answer(0, "{}");
    answer(1, R"({"message": "The second one failed."})", 500);
    happenTo(2);
    EXPECT_EQ(alert(), (QList<QString>{u"Cannot Upload File"_s, u"The second one failed."_s}));
    EXPECT_EQ(auth.isSignedIn(), !isExpiry());
}

INSTANTIATE_TEST_SUITE_P(Kinds, SessionUploadFailure, testing::ValuesIn(failureKinds()), ByName());

/// What a file turned into before its turn came.
struct Obstacle
{
    std::string name;
    std::function<int(const char* path)> make;
};

void PrintTo(const Obstacle& obstacle, std::ostream* out)
{
    *out << obstacle.name;
}

class SessionUnreadable : public SessionUploadTest, public testing::WithParamInterface<Obstacle>
{ };

TEST_P(SessionUnreadable, IsSaidAndKept)
{
    attachThree();
    upload();
    ASSERT_TRUE(QFile::remove(pathOf(u"b.pdf"_s)));
    ASSERT_EQ(GetParam().make(QFile::encodeName(pathOf(u"b.pdf"_s)).constData()), 0);
    answer(0, "{}");
    EXPECT_EQ(alert(), (QList<QString>{u"Cannot Upload File"_s, unreadable}));
    EXPECT_EQ(pendingNames(), (QList<QString>{u"b.pdf"_s, u"c.pdf"_s}));
    EXPECT_FALSE(model->isUploadingFiles.value());
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions/7/documents"_s);
    answer(1, documents({"a"}));
    EXPECT_EQ(requestCount(), 2) << "the third file is not tried";
}

INSTANTIATE_TEST_SUITE_P(Files, SessionUnreadable,
    testing::Values(Obstacle{"Gone", [](const char*) { return 0; }},
        Obstacle{"Folder", [](const char* path) { return mkdir(path, 0700); }},
        Obstacle{"Pipe", [](const char* path) { return mkfifo(path, 0600); }},
        Obstacle{"DanglingLink", [](const char* path) { return symlink("/nowhere/at/all", path); }}),
    ByName());

TEST_F(SessionUploadTest, AFileThatShrankWhileItWasSentIsSaidAndKept)
{
    attach(u"a.pdf"_s);
    upload();
    fail(0, TransportError::Code::CannotReadFile);
    EXPECT_EQ(alert(), (QList<QString>{u"Cannot Upload File"_s, unreadable}));
    EXPECT_EQ(pendingNames(), QList<QString>{u"a.pdf"_s});
}

TEST_F(SessionUploadTest, AfterASignOutNothingMoreIsSentInThePersonsName)
{
    attachThree();
    upload();
    replaceUser(account(u"Second"_s));
    webSession->reportProgress(0, 5, 10);
    EXPECT_EQ(model->uploadProgress.value(), 0);
    answer(0, "{}");
    EXPECT_EQ(requestCount(), 1);
    EXPECT_EQ(alert(), none);
    EXPECT_TRUE(auth.isSignedIn());
    EXPECT_FALSE(model->isUploadingFiles.value());
}

TEST_F(SessionUploadTest, ALateExpiryForSomebodyElseSignsNobodyOut)
{
    attachThree();
    upload();
    replaceUser(account(u"Second"_s));
    answer(0, "{}", 401);
    EXPECT_TRUE(auth.isSignedIn());
    EXPECT_EQ(alert(), none);
    EXPECT_FALSE(model->isUploadingFiles.value());
}

TEST_F(SessionUploadTest, ASignOutInTheMiddleOfTheLastFileEndsQuietly)
{
    attach(u"a.pdf"_s);
    upload();
    auth.signOut();
    answer(0, "{}");
    EXPECT_EQ(requestCount(), 1) << "the list is nobody's";
    EXPECT_EQ(alert(), none);
    EXPECT_FALSE(model->isUploadingFiles.value());
}

TEST_F(SessionUploadTest, RunsToItsEndAlthoughTheScreenHasGone)
{
    attachThree();
    upload();
    const std::weak_ptr<SessionDocumentsModel> gone = model;
    model.reset();
    for (qsizetype k = 0; k < 3; ++k) {
        EXPECT_FALSE(gone.expired());
        EXPECT_EQ(requestCount(), k + 1);
        answer(k, "{}");
    }
    answer(3, "[]");
    EXPECT_TRUE(gone.expired());
}

TEST_F(SessionUploadTest, OutlivesTheEndOfTheWebSession)
{
    attachThree();
    upload();
    EXPECT_EQ(request(0).method, "POST");
    webSession.reset();
    EXPECT_FALSE(model->isUploadingFiles.value());
    EXPECT_EQ(pendingNames().size(), 3);
}

TEST_F(SessionUploadTest, TheSameFileTwiceIsOneDraft)
{
    attach(u"deed.pdf"_s);
    attach(u"deed.pdf"_s);
    model->addUploads({QUrl::fromLocalFile(folder.path() + u"/./deed.pdf"_s)});
    model->addRegularFiles({QUrl::fromLocalFile(folder.path() + u"//deed.pdf"_s)});
    EXPECT_EQ(pendingNames(), QList<QString>{u"deed.pdf"_s});
}

TEST_F(SessionUploadTest, OnlyRegularFilesAreTaken)
{
    attach(u"deed.pdf"_s);
    model->clearUploads();
    ASSERT_EQ(mkfifo(QFile::encodeName(pathOf(u"pipe"_s)).constData(), 0600), 0);
    model->addRegularFiles({QUrl::fromLocalFile(folder.path()), QUrl::fromLocalFile(pathOf(u"pipe"_s)),
        QUrl::fromLocalFile(u"/dev/null"_s), QUrl::fromLocalFile(pathOf(u"missing"_s)),
        QUrl(u"http://example.com/a.pdf"_s), QUrl::fromLocalFile(pathOf(u"deed.pdf"_s))});
    EXPECT_EQ(pendingNames(), QList<QString>{u"deed.pdf"_s});
}

TEST_F(SessionUploadTest, TheSameFileCanBeSentAgainLater)
{
    attach(u"deed.pdf"_s);
    upload();
    answer(0, "{}");
    answer(1, "[]");
    attach(u"deed.pdf"_s);
    EXPECT_EQ(pendingNames(), QList<QString>{u"deed.pdf"_s});
    upload();
    EXPECT_EQ(fileOf(2), u"deed.pdf"_s);
    answer(2, "{}");
    answer(3, "[]");
}

} // namespace
