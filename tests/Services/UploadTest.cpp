#include "ServicesTest.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString token = u"id-token"_s;

class Upload : public ServicesTest
{
protected:
    MultipartFile file(const QString& name, const QByteArray& bytes)
    {
        const QString path = resources.filePath(name);
        QFile onDisk(path);
        if (!onDisk.open(QFile::WriteOnly) || onDisk.write(bytes) != bytes.size())
            qFatal("a file of the test cannot be written");
        return {u"desktop_files[]"_s, name, u"application/pdf"_s, {path, bytes.size()}};
    }

    /// Starts an upload; its request is number `session->count() - 1`.
    Awaited<JSONObject> upload(const QString& label, const QString& category, QList<MultipartFile> files)
    {
        return Awaited<JSONObject>(api.uploadSessionFiles(7, label, category, files, token, {}));
    }

    QByteArray boundary(qsizetype number)
    {
        const QByteArray type = session->header(number, "Content-Type");
        const QByteArray start = "multipart/form-data; boundary=";
        EXPECT_TRUE(type.startsWith(start)) << type.toStdString();
        return type.sliced(start.size());
    }
};

/// A part's bytes, from its delimiter to its last line end.
QByteArray field(const QByteArray& boundary, const QByteArray& name, const QByteArray& value)
{
    return "--" + boundary + "\r\nContent-Disposition: form-data; name=\"" + name + "\"\r\n\r\n" + value
        + "\r\n";
}

QByteArray filePart(const QByteArray& boundary, const QByteArray& name, const QByteArray& bytes)
{
    return "--" + boundary + "\r\nContent-Disposition: form-data; name=\"desktop_files[]\"; filename=\""
        + name + "\"\r\nContent-Type: application/pdf\r\n\r\n" + bytes + "\r\n";
}

TEST_F(Upload, SendsAllFilesInOneForm)
{
    const auto call = upload(u" Closing Package\n"_s, u" government_id "_s,
        {file(u"a.pdf"_s, "first"), file(u"b.pdf"_s, QByteArray("\0\r\n--", 5))});
    ASSERT_EQ(session->count(), 1);
    const Request& request = session->request(0);
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.url.toEncoded(),
        "https://bridge.example/mobile-bridge/v1/remote-notary/sessions/7/documents");
    EXPECT_EQ(request.headers.size(), 3);
    EXPECT_EQ(session->header(0, "Accept"), "application/json");
    EXPECT_EQ(session->header(0, "Authorization"), "Bearer id-token");

    const QByteArray mark = boundary(0);
    EXPECT_EQ(session->body(0),
        field(mark, "source", "macos_desktop_drag_drop") + field(mark, "document_label", "Closing Package")
            + field(mark, "document_category", "government_id") + field(mark, "file_count", "2")
            + field(mark, "file_labels[0]", "Closing Package")
            + field(mark, "file_categories[0]", "government_id")
            + field(mark, "file_labels[1]", "Closing Package")
            + field(mark, "file_categories[1]", "government_id") + filePart(mark, "a.pdf", "first")
            + filePart(mark, "b.pdf", QByteArray("\0\r\n--", 5)) + "--" + mark + "--\r\n");
    answer(0, R"({"data":{"uploaded":2}})");
    EXPECT_EQ(call.result(), JSONObject(json(R"({"uploaded":2})")));
}

TEST_F(Upload, ABlankLabelBecomesADesktopUpload)
{
    upload(u" \t\n "_s, u" "_s, {file(u"a.pdf"_s, "x")});
    const QByteArray mark = boundary(0);
    const QByteArray body = session->body(0);
    EXPECT_TRUE(body.contains(field(mark, "document_label", "Desktop upload")));
    EXPECT_TRUE(body.contains(field(mark, "file_labels[0]", "Desktop upload")));
    EXPECT_TRUE(body.contains(field(mark, "document_category", "")));
}

TEST_F(Upload, WithoutFilesSendsTheFourFields)
{
    upload(u"Deed"_s, u"supporting_document"_s, {});
    const QByteArray mark = boundary(0);
    EXPECT_EQ(session->body(0),
        field(mark, "source", "macos_desktop_drag_drop") + field(mark, "document_label", "Deed")
            + field(mark, "document_category", "supporting_document") + field(mark, "file_count", "0") + "--"
            + mark + "--\r\n");
}

TEST_F(Upload, EveryRequestHasABoundaryOfItsOwn)
{
    upload(u"Deed"_s, {}, {});
    upload(u"Deed"_s, {}, {});
    const QRegularExpression form(u"^Boundary-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
    EXPECT_TRUE(form.match(QString::fromLatin1(boundary(0))).hasMatch()) << boundary(0).toStdString();
    EXPECT_NE(boundary(0), boundary(1));
}

TEST_F(Upload, ReportsItsProgress)
{
    QList<std::pair<qint64, qint64>> reports;
    const Awaited<JSONObject> call(
        api.uploadSessionFiles(7, {}, {}, {}, token, [&reports](qint64 sent, qint64 total) {
            reports += {sent, total};
        }));
    session->reportProgress(0, 3, 10);
    session->reportProgress(0, 10, 10);
    const QList<std::pair<qint64, qint64>> expected{{3, 10}, {10, 10}};
    EXPECT_EQ(reports, expected);
    answer(0, "{}");
    EXPECT_TRUE(call.isDone());
}

TEST_F(Upload, AFileThatHasGoneIsNamedAsTheReason)
{
    const auto call = upload(u"Deed"_s, {}, {});
    fail(0, TransportError::Code::CannotReadFile);
    EXPECT_EQ(failureOf(call),
        u"One of the attached files could not be read. It may have been moved or deleted."_s);
}

} // namespace
