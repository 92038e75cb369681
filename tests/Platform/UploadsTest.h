#pragma once

#include "WebSessionTest.h"

#include <QFile>
#include <QTemporaryDir>

#include <future>

/// Requests whose bodies are files.
class Uploads : public testing::TestWithParam<Transport>
{
protected:
    /// A new file with these bytes.
    QString file(const QString& name, const QByteArray& bytes)
    {
        QFile made(folder.filePath(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly) && made.write(bytes) == bytes.size());
        return made.fileName();
    }

    Request upload(const QUrl& url, const QString& path, qint64 size)
    {
        Request request = write(url, "POST", {});
        request.body.append(RequestBody::File{path, size});
        return request;
    }

    QTemporaryDir folder;
    CurlWebSession session{trusting()};
};

/// Where a script waits until the test says that it may go on.
class Gate
{
public:
    Gate() : isOpen_(promise_.get_future()) { }

    void open() { promise_.set_value(); }
    void pass() const { isOpen_.wait(); }

private:
    std::promise<void> promise_;
    std::shared_future<void> isOpen_;
};
