#include "BookingUploadTest.h"

#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QString unreadable
    = u"One of the attached files could not be read. It may have been moved or deleted."_s;

TEST_F(BookingUploadTest, SendsOneFileARequestInTheirOrder)
{
    bookWithThreeFiles();
    const QList<QString> names{u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s};
    for (qsizetype k = 0; k < 3; ++k) {
        const QString name = names.at(k);
        ASSERT_EQ(requestCount(), k + 2) << "one after another, never side by side";
        EXPECT_EQ(line(k + 1), u"POST /remote-notary/sessions/7/documents"_s);
        EXPECT_EQ(header(k + 1, "Authorization"), "Bearer " + auth.user.value()->idToken.toUtf8());
        EXPECT_EQ(filesOf(k + 1), QList<QString>{name});
        EXPECT_EQ(progress(), u"Uploading %1 of 3: "_s.arg(k + 1) + name);
        EXPECT_FALSE(success().has_value());
        EXPECT_EQ(model->pendingUploads().size(), 3);
        answer(k + 1, "{}");
    }
    EXPECT_EQ(requestCount(), 4);
    EXPECT_EQ(success(), createdText + u" 3 files uploaded into the session."_s);
    EXPECT_EQ(progress(), u"Upload complete."_s);
    EXPECT_EQ(model->uploadProgress.value(), 1);
    EXPECT_TRUE(model->pendingUploads().isEmpty());
    EXPECT_FALSE(model->isSubmitting.value());
}

TEST_F(BookingUploadTest, SendsEachFileUnderItsNameTypeLabelAndCategory)
{
    attach(u"my_power-of_attorney.pdf"_s);
    attach(u"scan.PNG"_s);
    const QUuid scan = model->pendingUploads().at(1).id;
    model->setUploadLabel(scan, u" Closing \"A\" "_s);
    model->setUploadCategory(scan, u"apostille_document"_s);
    submit();
    answer(0, R"({"id": 7})");
    EXPECT_TRUE(text(1).contains("name=\"desktop_files[]\"; filename=\"my_power-of_attorney.pdf\""));
    EXPECT_TRUE(text(1).contains("Content-Type: application/pdf\r\n"));
    EXPECT_TRUE(text(1).contains("name=\"document_label\"\r\n\r\nmy power of attorney\r\n"));
    EXPECT_TRUE(text(1).contains("name=\"document_category\"\r\n\r\nnotarized_document\r\n"));
    EXPECT_TRUE(text(1).contains("name=\"file_count\"\r\n\r\n1\r\n"));
    answer(1, "{}");
    EXPECT_TRUE(text(2).contains("name=\"desktop_files[]\"; filename=\"scan.PNG\""));
    EXPECT_TRUE(text(2).contains("Content-Type: image/png\r\n"));
    EXPECT_TRUE(text(2).contains("name=\"document_label\"\r\n\r\nClosing \"A\"\r\n"));
    EXPECT_TRUE(text(2).contains("name=\"document_category\"\r\n\r\napostille_document\r\n"));
    answer(2, "{}");
    EXPECT_EQ(success(), createdText + u" 2 files uploaded into the session."_s);
}

TEST_F(BookingUploadTest, CountsOneFileInTheSingular)
{
    attach(u"a.pdf"_s);
    submit();
    answer(0, R"({"session_id": 42, "id": null, "reference_id": "7"})");
    EXPECT_EQ(line(1), u"POST /remote-notary/sessions/42/documents"_s);
    answer(1, "{}");
    EXPECT_EQ(success(), createdText + u" 1 file uploaded into the session."_s);
}

TEST_F(BookingUploadTest, GoesIntoTheSessionFoundByItsReference)
{
    attach(u"a.pdf"_s);
    submit();
    answer(0, R"({"reference_id": "RN-1"})");
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions"_s);
    answer(1, R"([{"id": 4, "reference_id": "RN-1"}])");
    EXPECT_EQ(line(2), u"POST /remote-notary/sessions/4/documents"_s);
    answer(2, "{}");
    EXPECT_TRUE(success().has_value());
}

TEST_F(BookingUploadTest, GoesIntoTheSessionInTheAnswer)
{
    attach(u"a.pdf"_s);
    submit();
    answer(0, R"({"session": {"id": 7}})");
    EXPECT_EQ(line(1), u"POST /remote-notary/sessions/7/documents"_s);
    answer(1, "{}");
    EXPECT_EQ(success(), createdText + u" 1 file uploaded into the session."_s);
}

TEST_F(BookingUploadTest, WithoutAnIdTheFilesStayInTheList)
{
    attach(u"a.pdf"_s);
    submit();
    answer(0, R"({"reference_id": "7"})");
    answer(1, "[]");
    EXPECT_EQ(requestCount(), 2);
    EXPECT_EQ(success(),
        createdText
            + u" Files were not uploaded automatically because the new session ID was not returned. Open "
              u"Sessions "
              "and upload them from the session detail."_s);
    EXPECT_EQ(attachedNames(), QList<QString>{u"a.pdf"_s});
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_F(BookingUploadTest, EachFileMovesTheProgressByItsShare)
{
    bookWithThreeFiles();
    EXPECT_EQ(model->uploadProgress.value(), 0);
    request(1).onProgress(5, 10);
    EXPECT_DOUBLE_EQ(model->uploadProgress.value(), 1.0 / 6);
    request(1).onProgress(400, 400);
    EXPECT_DOUBLE_EQ(model->uploadProgress.value(), 1.0 / 3) << "what surrounds the file does not count";
    answer(1, "{}");
    request(2).onProgress(10, 20);
    EXPECT_DOUBLE_EQ(model->uploadProgress.value(), 0.5);
    answer(2, "{}");
    EXPECT_DOUBLE_EQ(model->uploadProgress.value(), 2.0 / 3);
    answer(3, "{}");
    EXPECT_EQ(model->uploadProgress.value(), 1);
}

TEST_F(BookingUploadTest, EmptyFilesAreSent)
{
    attach(u"empty.pdf"_s, {});
    submit();
    answer(0, R"({"id": 7})");
    request(1).onProgress(0, 0);
    EXPECT_EQ(model->uploadProgress.value(), 0);
    answer(1, "{}");
    EXPECT_EQ(success(), createdText + u" 1 file uploaded into the session."_s);
}

TEST_F(BookingUploadTest, AFailureStopsAndKeepsTheList)
{
    bookWithThreeFiles();
    answer(1, "{}");
    answer(2, R"({"message": "Too large."})", 413);
    EXPECT_EQ(requestCount(), 3) << "the third file is not tried";
    EXPECT_EQ(alertOf(*model), (QList<QString>{u"Booking Failed"_s, u"Too large."_s}));
    EXPECT_FALSE(success().has_value());
    EXPECT_FALSE(model->isSubmitting.value());
    EXPECT_EQ(attachedNames(), (QList<QString>{u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s}));
    EXPECT_EQ(progress(), QString()) << "nothing is being uploaded any more";
    EXPECT_EQ(model->details.value(), u" Sign the deed "_s);
}

TEST_F(BookingUploadTest, SessionExpirySignsOutWithoutAWord)
{
    bookWithThreeFiles();
    answer(1, "{}", 401);
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(requestCount(), 2);
    EXPECT_FALSE(model->isSubmitting.value());
}

TEST_F(BookingUploadTest, AfterASignOutNothingMoreIsSentInThePersonsName)
{
    bookWithThreeFiles();
    replaceUser(account(u"Second"_s));
    request(1).onProgress(5, 10);
    EXPECT_EQ(model->uploadProgress.value(), 0);
    answer(1, "{}");
    EXPECT_EQ(requestCount(), 2);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(success().has_value());
    EXPECT_FALSE(model->isSubmitting.value());
}

TEST_F(BookingUploadTest, ALateExpiryForSomebodyElseSignsNobodyOut)
{
    bookWithThreeFiles();
    replaceUser(account(u"Second"_s));
    answer(1, "{}", 401);
    EXPECT_TRUE(auth.isSignedIn());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(model->isSubmitting.value());
}

TEST_F(BookingUploadTest, AFileTakenOffTheListMeanwhileIsNotSent)
{
    bookWithThreeFiles();
    model->removeUpload(model->pendingUploads().at(1).id);
    answer(1, "{}");
    EXPECT_EQ(filesOf(2), QList<QString>{u"c.pdf"_s});
    EXPECT_EQ(progress(), u"Uploading 3 of 3: c.pdf"_s);
    answer(2, "{}");
    EXPECT_EQ(success(), createdText + u" 2 files uploaded into the session."_s);
}

TEST_F(BookingUploadTest, AFormResetMeanwhileStaysReset)
{
    bookWithThreeFiles();
    model->resetForm();
    request(1).onProgress(5, 10);
    answer(1, "{}");
    EXPECT_EQ(requestCount(), 2);
    EXPECT_EQ(progress(), QString());
    EXPECT_EQ(model->uploadProgress.value(), 0);
    EXPECT_FALSE(success().has_value());
}

enum class Obstacle
{
    Gone,
    Folder,
    Pipe
};

class BookingUnreadable : public BookingUploadTest, public testing::WithParamInterface<Obstacle>
{ };

TEST_P(BookingUnreadable, IsSaidAndEverythingKept)
{
    bookWithThreeFiles();
    const QJsonObject before = model->requestBody();
    const QByteArray path = QFile::encodeName(pathOf(u"b.pdf"_s));
    ASSERT_TRUE(QFile::remove(pathOf(u"b.pdf"_s)));
    if (GetParam() == Obstacle::Folder) {
        ASSERT_EQ(mkdir(path.constData(), 0700), 0);
    } else if (GetParam() == Obstacle::Pipe) {
        ASSERT_EQ(mkfifo(path.constData(), 0600), 0);
    }
    answer(1, "{}");
    EXPECT_EQ(requestCount(), 2);
    EXPECT_EQ(alertOf(*model), (QList<QString>{u"Booking Failed"_s, unreadable}));
    EXPECT_EQ(model->pendingUploads().size(), 3);
    EXPECT_EQ(model->requestBody(), before);
    EXPECT_FALSE(success().has_value());
}

INSTANTIATE_TEST_SUITE_P(Files, BookingUnreadable,
    testing::Values(Obstacle::Gone, Obstacle::Folder, Obstacle::Pipe), [](const auto& row) {
        return std::string(row.param == Obstacle::Gone ? "Gone"
                : row.param == Obstacle::Folder        ? "Folder"
                                                       : "Pipe");
    });

TEST_F(BookingUploadTest, AFileIsMeasuredWhenItsTurnComes)
{
    bookWithThreeFiles();
    QFile file(pathOf(u"b.pdf"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("now more");
    file.close();
    answer(1, "{}");
    QList<qint64> sizes;
    for (const RequestBody::Part& part : request(2).body.parts()) {
        if (const auto* sent = std::get_if<RequestBody::File>(&part))
            sizes += sent->size;
    }
    EXPECT_EQ(sizes, QList<qint64>{8});
    answer(2, "{}");
    answer(3, "{}");
    EXPECT_TRUE(success().has_value());
}

TEST_F(BookingUploadTest, TheSameFileTwiceIsOneDraft)
{
    int changes = 0;
    QObject::connect(model.get(), &BookRemoteNotaryModel::uploadsChanged, model.get(), [&] { ++changes; });
    attach(u"deed.pdf"_s);
    attach(u"deed.pdf"_s);
    model->addBookingFileURLs({QUrl::fromLocalFile(folder.path() + u"/./deed.pdf"_s)});
    EXPECT_EQ(attachedNames(), QList<QString>{u"deed.pdf"_s});
    EXPECT_GE(changes, 1);
}

TEST_F(BookingUploadTest, DraftsCanBeEditedRemovedAndCleared)
{
    attach(u"my_power-of_attorney.pdf"_s);
    attach(u"scan.PNG"_s);
    attach(u"c.pdf"_s);
    const QList<DesktopUploadDraft> drafts = model->pendingUploads();
    EXPECT_EQ(drafts.at(0).label, u"my power of attorney"_s);
    EXPECT_EQ(drafts.at(0).category, u"notarized_document"_s);
    EXPECT_EQ(drafts.at(1).category, u"supporting_document"_s);
    model->setUploadLabel(drafts.at(1).id, u"Scan"_s);
    model->setUploadCategory(drafts.at(1).id, u"government_id"_s);
    model->setUploadLabel(QUuid::createUuid(), u"nobody's"_s);
    model->setUploadCategory(QUuid::createUuid(), u"nobody's"_s);
    EXPECT_EQ(model->pendingUploads().at(1).label, u"Scan"_s);
    EXPECT_EQ(model->pendingUploads().at(1).category, u"government_id"_s);
    model->removeUpload(QUuid::createUuid());
    EXPECT_EQ(model->pendingUploads().size(), 3);
    model->removeUpload(drafts.at(0).id);
    EXPECT_EQ(attachedNames(), (QList<QString>{u"scan.PNG"_s, u"c.pdf"_s}));
    model->clearUploads();
    EXPECT_TRUE(model->pendingUploads().isEmpty());
}

TEST_F(BookingUploadTest, RunsToItsEndAlthoughTheScreenHasGone)
{
    bookWithThreeFiles();
    const std::weak_ptr<BookRemoteNotaryModel> gone = model;
    model.reset();
    for (qsizetype k = 1; k <= 3; ++k) {
        EXPECT_FALSE(gone.expired());
        EXPECT_EQ(requestCount(), k + 1);
        answer(k, "{}");
    }
    EXPECT_TRUE(gone.expired());
}

TEST_F(BookingUploadTest, OutlivesTheEndOfTheWebSession)
{
    bookWithThreeFiles();
    EXPECT_EQ(request(1).method, "POST");
    webSession.reset();
    EXPECT_FALSE(model->isSubmitting.value());
    EXPECT_EQ(model->pendingUploads().size(), 3);
}

} // namespace
