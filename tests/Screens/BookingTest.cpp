#include "BookingTest.h"

#include <QFile>
#include <QTimeZone>

using namespace Qt::StringLiterals;

BookingTest::BookingTest()
{
    signIn(account(u"Jordan Ellis"_s));
    model = std::make_shared<BookRemoteNotaryModel>(context);
}

void BookingTest::fillIn()
{
    model->contactName = u" Ada Client \n"_s;
    model->contactEmail = u"ada@example.com "_s;
    model->contactPhone = u" 555 0100"_s;
    model->scheduledDate = QDateTime(QDate(2025, 6, 3), QTime(18, 5), Qt::UTC);
    model->documentType = u"Power of Attorney"_s;
    model->actCount = 3;
    model->details = u" Sign the deed "_s;
    model->notes = u" Ring twice\n"_s;
    model->editSigner(0, [](SignerDraft& signer) {
        signer.name = u" Grace Signer "_s;
        signer.email = u" grace@example.com"_s;
        signer.phone = u"555 0101 "_s;
        signer.idType = u"Passport"_s;
        // Already the next day by UTC.
        signer.idExpirationDate = QDateTime(QDate(2030, 1, 1), QTime(3, 0), Qt::UTC);
    });
}

void BookingTest::submit()
{
    launch(model->submit());
    settle();
}

void BookingTest::attach(const QString& name, const QByteArray& content)
{
    QFile file(pathOf(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
    file.close();
    model->addBookingFileURLs({QUrl::fromLocalFile(pathOf(name))});
}

QList<QString> BookingTest::attachedNames() const
{
    QList<QString> names;
    for (const DesktopUploadDraft& draft : model->pendingUploads())
        names += draft.fileName();
    return names;
}
