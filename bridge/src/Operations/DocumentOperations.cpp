#include "Operations/Operations.h"

#include "Answers/SessionAnswers.h"
#include "Http/ByteRange.h"
#include "Http/Problem.h"
#include "Net/RequestHead.h"
#include "Operations/SessionRules.h"
#include "Operations/UploadForm.h"
#include "People/DailyUse.h"
#include "Work/Uploads.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace bridge {

// Who only sees an open call reads what its documents are, not what they say.
static void showDocuments(Service& service, Call& call)
{
    ListText documents(service.answers, call.id() % 2 == 0 ? "uploads" : "documents");
    const std::string origin = call.origin();
    service.read(call, [&](soci::session& sql, const Account& self) {
        const bool mayOpen = takesPart(self, visibleSession(sql, self, call.id()));
        const Moment now = service.now();
        eachUpload(sql, call.id(), [&](const Upload& upload) {
            return documents.add(uploadAnswer(upload, mayOpen ? addressOf(upload, origin, now) : ""));
        });
    });
    call.answer(std::move(documents));
}

// Files that are kept before their rows are committed, and go again when that fails.
static std::vector<Upload> store(Service& service, Call& call, UploadForm& form)
{
    try {
        std::vector<Upload> uploads = form.keepFiles();
        return service.write(call, [&](soci::session& sql, const Account& self) {
            // It may have been deleted while the files came in.
            writableSession(sql, self, call.id());
            const Moment now = service.now();
            const DailyLimits& daily = service.settings.daily;
            const auto count = static_cast<long long>(uploads.size());
            if (!use(sql, self.id, Use::Documents, count, daily.documents, now)
                || !use(sql, self.id, Use::DocumentBytes, form.size(), daily.documentBytes, now))
                throw enoughForToday();
            for (Upload& upload : uploads) {
                upload.sessionId = call.id();
                upload.userId = self.id;
                upload.uploadedBy = self.fullName;
                upload.createdAt = stamp(now);
                upload = addUpload(sql, upload);
            }
            return uploads;
        });
    } catch (...) {
        form.discardFiles();
        throw;
    }
}

static void requireRoom(Service& service, Call& call)
{
    service.read(call, [&](soci::session& sql, const Account& self) {
        writableSession(sql, self, call.id());
        const DailyLimits& daily = service.settings.daily;
        const Moment now = service.now();
        if (usedToday(sql, self.id, Use::Documents, now) >= daily.documents
            || usedToday(sql, self.id, Use::DocumentBytes, now) > daily.documentBytes - call.statedLength())
            throw enoughForToday();
    });
}

static void upload(Service& service, Call& call)
{
    requireRoom(service, call);
    try {
        UploadForm form(call.contentType(), service.uploads, service.settings.largestUpload);
        call.read([&form](const char* bytes, std::size_t size) { form.feed(bytes, size); });
        form.requireFiles();
        const std::vector<Upload> uploads = store(service, call, form);
        const auto answer = [origin = call.origin(), now = service.now()](
                                const Upload& one) { return uploadAnswer(one, addressOf(one, origin, now)); };
        if (uploads.size() == 1)
            call.answer({{"data", answer(uploads.front())}}, 201);
        else
            call.answer({{"documents", listOf(uploads, answer)}}, 201);
    } catch (const std::system_error&) {
        throw refusal(507, "There is no room to store that file. Please try again later.");
    }
}

static std::string percentEncoded(const std::string& text)
{
    std::string encoded;
    for (const char letter : text) {
        if (std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '.' || letter == '-'
            || letter == '_') {
            encoded += letter;
        } else {
            std::array<char, 4> digits;
            std::snprintf(digits.data(), digits.size(), "%%%02X", static_cast<unsigned char>(letter));
            encoded += digits.data();
        }
    }
    return encoded;
}

// The type that the uploader stated is repeated only when it is plainly one.
static std::string safeMimeType(const std::string& type)
{
    const auto slash = type.find('/');
    const bool isPlain = std::all_of(type.begin(), type.end(), [](unsigned char letter) {
        return std::isalnum(letter) || letter == '/' || letter == '-' || letter == '.' || letter == '+';
    });
    return isPlain && slash != std::string::npos && slash > 0 && slash + 1 < type.size()
        ? type
        : "application/octet-stream";
}

static void download(Service& service, Call& call)
{
    const std::optional<Upload> found
        = service.database.read([&](soci::session& sql) { return findUpload(sql, call.id()); });
    if (!found || !opens(*found, call.query("key"), service.now()))
        throw notFound();
    const auto file
        = std::make_shared<Descriptor>(::open((service.uploads / found->path).c_str(), O_RDONLY | O_CLOEXEC));
    if (file->number() < 0)
        throw notFound();

    httplib::Response& response = call.response();
    const auto size = static_cast<std::uint64_t>(found->byteSize);
    const ByteRange range = readRange(call.header(RequestHead::receivedRange), size);
    if (range.kind == ByteRange::Kind::Unsatisfiable) {
        response.set_header("Content-Range", "bytes */" + std::to_string(size));
        call.answer({{"message", "The file does not have that part."}}, 416);
        return;
    }
    response.set_header(
        "Content-Disposition", "attachment; filename*=UTF-8''" + percentEncoded(found->originalName));
    // What a stranger has sent does nothing in the browser that shows it, and its address goes nowhere from
    // there.
    response.set_header("Content-Security-Policy", "sandbox");
    response.set_header("Referrer-Policy", "no-referrer");
    response.set_header("Accept-Ranges", "bytes");
    const bool isPart = range.kind == ByteRange::Kind::Part;
    if (isPart) {
        response.status = 206;
        response.set_header("Content-Range",
            "bytes " + std::to_string(range.begin) + '-' + std::to_string(range.begin + range.length - 1)
                + '/' + std::to_string(size));
    }
    response.set_content_provider(static_cast<std::size_t>(isPart ? range.length : size),
        safeMimeType(found->mimeType),
        [file, begin = range.begin](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
            std::array<char, 64 << 10> buffer;
            const ssize_t count = ::pread(file->number(), buffer.data(), std::min(length, buffer.size()),
                static_cast<off_t>(begin + offset));
            return count > 0 && sink.write(buffer.data(), static_cast<std::size_t>(count));
        });
}

static const std::string documents = bridgeBase + "/remote-notary/sessions/{id}/documents";

Routes documentRoutes()
{
    static const Route routes[] = {
        {"GET", documents, Access::SignedIn, showDocuments},
        {"POST", documents, Access::SignedIn, upload},
        {"GET", "/files/{id}", Access::Everybody, download},
    };
    return routes;
}

} // namespace bridge
