#include "Launch.h"
#include "ScreenTest.h"
#include "Sessions/SessionDocumentsModel.h"

#include <QTemporaryDir>

#include <deque>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// Files on a disk that answers when the test lets it.
class HangingDiskTest : public ScreenTest
{
protected:
    HangingDiskTest()
    {
        signIn(account(u"Priya Raman"_s));
        disk = [this](const QStringList& paths) {
            looks.push_back({paths, {}});
            looks.back().promise.start();
            return looks.back().promise.future();
        };
    }

    QUrl file(const QString& name)
    {
        QFile made(folder.filePath(name));
        EXPECT_TRUE(made.open(QFile::WriteOnly) && made.write("12345") == 5);
        return QUrl::fromLocalFile(made.fileName());
    }

    /// Lets the disk tell what is at the paths of a look.
    void answerLook(size_t number)
    {
        Look& look = looks.at(number);
        look.promise.addResult(lookNow(look.paths).result());
        look.promise.finish();
        settle();
    }

    QStringList names() const
    {
        QStringList names;
        for (const DesktopUploadDraft& draft : model->pendingUploads())
            names += draft.fileName();
        return names;
    }

    struct Look
    {
        QStringList paths;
        QPromise<QList<FoundFile>> promise;
    };
    std::deque<Look> looks;
    QTemporaryDir folder;
    std::shared_ptr<SessionDocumentsModel> model = std::make_shared<SessionDocumentsModel>(context, 7);
};

TEST_F(HangingDiskTest, FilesShowUpInTheirOrderOnceItAnswers)
{
    const QUrl pipe = QUrl::fromLocalFile(folder.filePath(u"pipe"_s));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe.toLocalFile()).constData(), 0600), 0);
    model->addRegularFiles({file(u"c"_s), pipe, file(u"a"_s), file(u"b"_s)});
    settle();
    EXPECT_TRUE(model->pendingUploads().isEmpty());
    ASSERT_EQ(looks.size(), 1) << "one look for all of them";
    answerLook(0);
    EXPECT_EQ(names(), (QStringList{u"c"_s, u"a"_s, u"b"_s}));
    EXPECT_EQ(model->pendingUploads().constFirst().detail(), u"c • 5 bytes"_s);
}

TEST_F(HangingDiskTest, FilesOfAnotherOneDoNotWait)
{
    model->addRegularFiles({file(u"far"_s)});
    model->addRegularFiles({file(u"near"_s)});
    answerLook(1);
    EXPECT_EQ(names(), QStringList{u"near"_s});
    answerLook(0);
    EXPECT_EQ(names(), (QStringList{u"near"_s, u"far"_s}));
}

TEST_F(HangingDiskTest, FilesDoNotShowUpAfterTheListWasCleared)
{
    model->addRegularFiles({file(u"late"_s)});
    model->clearUploads();
    answerLook(0);
    EXPECT_TRUE(model->pendingUploads().isEmpty());
}

TEST_F(HangingDiskTest, FilesDoNotShowUpForSomebodyElse)
{
    model->addRegularFiles({file(u"late"_s)});
    replaceUser(account(u"Tomas Alder"_s));
    answerLook(0);
    EXPECT_TRUE(model->pendingUploads().isEmpty());
}

TEST_F(HangingDiskTest, TheScreenMayBeLeftMeanwhile)
{
    model->addRegularFiles({file(u"late"_s)});
    const std::weak_ptr<SessionDocumentsModel> weak = model;
    model.reset();
    answerLook(0);
    EXPECT_TRUE(weak.expired());
}

TEST_F(HangingDiskTest, AnUploadWaitsForItAndThenGoesOut)
{
    model->addUploads({file(u"deed.pdf"_s)});
    answerLook(0);
    launch(model->uploadPendingFiles());
    settle();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_TRUE(model->isUploadingFiles.value());
    EXPECT_EQ(model->uploadProgressText.value(), u"Preparing files..."_s);
    answerLook(1);
    ASSERT_EQ(requestCount(), 1);
    answer(0, "{}");
    EXPECT_TRUE(model->pendingUploads().isEmpty());
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions/7/documents"_s);
}

TEST_F(HangingDiskTest, AFileTakenOffTheListMeanwhileIsNotSent)
{
    model->addUploads({file(u"deed.pdf"_s)});
    answerLook(0);
    launch(model->uploadPendingFiles());
    model->removeUpload(model->pendingUploads().constFirst().id);
    answerLook(1);
    EXPECT_EQ(requestCount(), 0);
    EXPECT_FALSE(model->isUploadingFiles.value());
}

TEST_F(HangingDiskTest, NothingIsSentForSomebodyWhoHasLeftMeanwhile)
{
    model->addUploads({file(u"deed.pdf"_s)});
    answerLook(0);
    launch(model->uploadPendingFiles());
    replaceUser(account(u"Tomas Alder"_s));
    answerLook(1);
    EXPECT_EQ(requestCount(), 0);
}

TEST_F(HangingDiskTest, AFileThatIsAPipeByThenIsNotSent)
{
    const QUrl deed = file(u"deed.pdf"_s);
    model->addUploads({deed});
    answerLook(0);
    launch(model->uploadPendingFiles());
    ASSERT_TRUE(QFile::remove(deed.toLocalFile()));
    ASSERT_EQ(mkfifo(QFile::encodeName(deed.toLocalFile()).constData(), 0600), 0);
    answerLook(1);
    EXPECT_EQ(requestCount(), 0);
    EXPECT_EQ(alertOf(*model).value(0), u"Cannot Upload File"_s);
}

/// Ten thousand files are one look and one change of the list.
TEST_F(HangingDiskTest, ManyFilesAreLookedAtTogether)
{
    constexpr int count = 10'000;
    QList<QUrl> many;
    for (int k = 0; k < count; ++k)
        many += QUrl::fromLocalFile(folder.filePath(QString::number(k)));
    int changes = 0;
    QObject::connect(model.get(), &UploadsModel::uploadsChanged, model.get(), [&changes] { ++changes; });
    model->addUploads(many);
    ASSERT_EQ(looks.size(), 1);
    EXPECT_EQ(looks.front().paths.size(), count);
    answerLook(0);
    EXPECT_EQ(model->pendingUploads().size(), count);
    EXPECT_EQ(changes, 1);
}
