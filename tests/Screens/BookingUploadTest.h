#pragma once

#include "BookingTest.h"

#include <QDir>

/// A filled-in booking form with files to go into the session.
class BookingUploadTest : public BookingTest
{
protected:
    BookingUploadTest() { fillIn(); }

    /// Attaches a.pdf, b.pdf and c.pdf of 10, 20 and 10 bytes and books session 7.
    void bookWithThreeFiles()
    {
        attach(QStringLiteral("a.pdf"), QByteArray(10, 'a'));
        attach(QStringLiteral("b.pdf"), QByteArray(20, 'b'));
        attach(QStringLiteral("c.pdf"), QByteArray(10, 'c'));
        submit();
        answer(0, R"({"id": 7})");
    }

    std::optional<QString> success() const { return model->successMessage.value(); }
    QString progress() const { return model->uploadProgressText.value(); }

    /// The names of the files that a request carries, read from its body.
    QList<QString> filesOf(qsizetype number) const
    {
        QList<QString> names;
        for (const RequestBody::Part& part : request(number).body.parts()) {
            if (const auto* file = std::get_if<RequestBody::File>(&part))
                names += QDir(folder.path()).relativeFilePath(file->path);
        }
        return names;
    }
};

inline const QString createdText
    = QStringLiteral("Remote notary request 7 was created. Our team will review and confirm the session.");
