#pragma once

#include "Launch.h"
#include "ScreenTest.h"
#include "Sessions/SessionDocumentsModel.h"
#include "support/FormReader.h"

#include <QTemporaryDir>

/// The documents of session 7, and files that can be added to them.
class SessionDocumentsTest : public ScreenTest
{
protected:
    SessionDocumentsTest();

    void load();
    void upload();
    /// Makes a file in a folder of the test's own and attaches it.
    void attach(const QString& name, const QByteArray& content = "content");
    /// a.pdf, b.pdf and c.pdf of 10, 20 and 10 bytes.
    void attachThree();

    QString pathOf(const QString& name) const { return folder.filePath(name); }
    QList<QString> pendingNames() const;
    QList<QString> documentNames() const;
    QString progress() const { return model->uploadProgressText.value(); }
    /// The parts of the form that a request sends.
    QList<FormPart> form(qsizetype number) const;
    /// The name of the one file that a request carries.
    QString fileOf(qsizetype number) const;
    static QByteArray documents(const QList<QByteArray>& names);

    QTemporaryDir folder;
    std::shared_ptr<SessionDocumentsModel> model = std::make_shared<SessionDocumentsModel>(context, 7);
    const QList<QString> none;
};
