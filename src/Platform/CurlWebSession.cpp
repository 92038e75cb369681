#include "CurlWebSession.h"

#include "CurlEngine.h"

#include <QCoroFuture>
#include <QFileInfo>

CurlWebSession::CurlWebSession(Options options)
{
    if (!QFileInfo(QFile::decodeName(options.trustedFile)).isFile())
        options.trustedFile.clear();
    engine_ = std::make_unique<CurlEngine>(options);
}

CurlWebSession::~CurlWebSession() = default;

QCoro::Task<Response> CurlWebSession::send(Request request)
{
    // The future's watcher resumes this through the event loop, never inside a callback of libcurl's.
    const QFuture<CurlTransfer::Outcome> future = engine_->start(std::move(request));
    CurlTransfer::Outcome outcome = co_await future;
    if (const auto* code = std::get_if<TransportError::Code>(&outcome))
        throw TransportError(*code);
    co_return std::get<Response>(std::move(outcome));
}

void CurlWebSession::cancelAll()
{
    engine_->cancelAll();
}
