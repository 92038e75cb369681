#include "BookRemoteNotaryViewTest.h"

#include "Screens/LocalZone.h"
#include "Type.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

/// Pictures of the booking screen for the eye, written into the folder that QUORVEL_PICTURES names.
class BookRemoteNotaryViewPictures : public BookRemoteNotaryViewTest, public testing::WithParamInterface<bool>
{
protected:
    void SetUp() override
    {
        if (pictures.isEmpty())
            GTEST_SKIP() << "QUORVEL_PICTURES names no folder";
        isDark = GetParam();
        style()->setDark(isDark);
    }
    void TearDown() override
    {
        Type::followDesktop(13);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }
    void save(const QString& name, QSize size)
    {
        show(size);
        fillAll();
        view->setFocus();
        settle();
        grab(name);
    }

    void grab(const QString& name)
    {
        const QString scheme = isDark ? u"-dark.png"_s : u"-light.png"_s;
        EXPECT_TRUE(window.grab().save(QDir(pictures).filePath(u"booking-"_s + name + scheme)));
    }

    void fillAll()
    {
        fillIn();
        model->contactPhone = u"(555) 010-0142"_s;
        model->documentRetrievalOption = u"priority"_s;
        model->actCount = 3;
        model->scheduledDate = QDateTime(QDate(2026, 3, 12), QTime(18, 30), Qt::UTC);
        model->documentType = u"Power of Attorney"_s;
        model->details
            = u"Durable power of attorney for two signers, three signatures in total. Both signers "
              "join from the same room."_s;
        model->witnessRequired = true;
        if (model->signers().size() == 1)
            model->addSigner();
        model->editSigner(0, [](SignerDraft& signer) {
            signer.email = u"priya.raman@example.com"_s;
            signer.phone = u"(555) 010-0117"_s;
            signer.idExpirationDate = QDateTime(QDate(2031, 9, 30), QTime(17, 0), Qt::UTC);
        });
        model->editSigner(1, [](SignerDraft& signer) {
            signer.name = u"Tomas Alder"_s;
            signer.email = u"tomas.alder@example.com"_s;
            signer.phone = u"(555) 010-0163"_s;
        });
        emit model->signerChanged(0);
        emit model->signerChanged(1);
        if (model->pendingUploads().isEmpty()) {
            attach({u"power_of_attorney.pdf"_s, u"raman_passport.jpg"_s});
            model->addBookingFileURLs({file(u"closing.xlsx"_s)});
        }
        settle();
    }

    const QString pictures = qEnvironmentVariable("QUORVEL_PICTURES");
    bool isDark = false;
};

} // namespace

TEST_P(BookRemoteNotaryViewPictures, FormAtEverySize)
{
    save(u"980x680"_s, {760, 648});
    save(u"1180x760"_s, {960, 728});
    save(u"1920x1080"_s, {1680, 1048});
    save(u"full"_s, {960, 2961});
    save(u"full-980"_s, {760, 2961});
}

TEST_P(BookRemoteNotaryViewPictures, LargeText)
{
    Type::followDesktop(26);
    save(u"large-980x680"_s, {760, 648});
    save(u"large-full-980"_s, {760, 5000});
    save(u"large-1180x760"_s, {960, 728});
    save(u"large-1920x1080"_s, {1680, 1048});
}

TEST_P(BookRemoteNotaryViewPictures, RightToLeft)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    save(u"mirrored-full"_s, {960, 2961});
}

TEST_P(BookRemoteNotaryViewPictures, UnknownCountInAnotherZone)
{
    const LocalZone zone("Asia/Tokyo");
    model->actUnknown = true;
    save(u"tokyo-1180x760"_s, {960, 1200});
}

TEST_P(BookRemoteNotaryViewPictures, Uploading)
{
    model->isSubmitting = true;
    model->uploadProgressText = u"Uploading 2 of 3: raman_passport.jpg"_s;
    model->uploadProgress = 0.5;
    save(u"uploading-full-980"_s, {760, 2961});
}

TEST_P(BookRemoteNotaryViewPictures, Success)
{
    show();
    model->successMessage = u"Remote notary request RN-20260311-0148 was created. Our team will review and "
                            "confirm the session. 3 files uploaded into the session."_s;
    settle();
    grab(u"success"_s);
}

INSTANTIATE_TEST_SUITE_P(Schemes, BookRemoteNotaryViewPictures, testing::Bool(),
    [](const auto& scheme) { return scheme.param ? "Dark" : "Light"; });
