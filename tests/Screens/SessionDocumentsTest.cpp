#include "SessionDocumentsTest.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

SessionDocumentsTest::SessionDocumentsTest()
{
    signIn(account(u"Priya Raman"_s));
}

void SessionDocumentsTest::load()
{
    launch(model->loadDocuments());
    settle();
}

void SessionDocumentsTest::upload()
{
    launch(model->uploadPendingFiles());
    settle();
}

void SessionDocumentsTest::attach(const QString& name, const QByteArray& content)
{
    QFile file(pathOf(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
    model->addUploads({QUrl::fromLocalFile(file.fileName())});
}

void SessionDocumentsTest::attachThree()
{
    attach(u"a.pdf"_s, QByteArray(10, 'a'));
    attach(u"b.pdf"_s, QByteArray(20, 'b'));
    attach(u"c.pdf"_s, QByteArray(10, 'c'));
}

QList<QString> SessionDocumentsTest::pendingNames() const
{
    QList<QString> names;
    for (const DesktopUploadDraft& draft : model->pendingUploads())
        names += draft.fileName();
    return names;
}

QList<QString> SessionDocumentsTest::documentNames() const
{
    QList<QString> names;
    for (const RemoteDocumentUpload& document : model->documents())
        names += document.displayName();
    return names;
}

QList<FormPart> SessionDocumentsTest::form(qsizetype number) const
{
    const QByteArray type = header(number, "Content-Type");
    const QByteArray before = "multipart/form-data; boundary=";
    EXPECT_TRUE(type.startsWith(before)) << type.toStdString();
    const auto parts = readForm(webSession->body(number), type.sliced(before.size()));
    EXPECT_TRUE(parts.has_value());
    return parts.value_or(QList<FormPart>());
}

QString SessionDocumentsTest::fileOf(qsizetype number) const
{
    QString name;
    for (const RequestBody::Part& part : request(number).body.parts()) {
        if (const auto* file = std::get_if<RequestBody::File>(&part)) {
            EXPECT_TRUE(name.isEmpty()) << "one file a request";
            name = QFileInfo(file->path).fileName();
        }
    }
    return name;
}

QByteArray SessionDocumentsTest::documents(const QList<QByteArray>& names)
{
    QByteArray json;
    for (qsizetype i = 0; i < names.size(); ++i)
        json += (i > 0 ? "," : "") + QByteArray(R"({"id":)") + QByteArray::number(i + 1)
            + R"(,"document_name":")" + names.at(i) + R"("})";
    return R"({"documents":[)" + json + "]}";
}
