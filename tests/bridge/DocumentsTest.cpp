#include "support/Reader.h"
#include "support/RunningBridge.h"

#include <fstream>
#include <thread>

namespace {

class Documents : public BridgeTest
{
protected:
    Reply upload(const std::string& body, const std::string& type = formType)
    {
        return api.sendText("POST", "/remote-notary/sessions/13/documents", token, type, body);
    }

    std::vector<Json> list()
    {
        return reader::list(api.get("/remote-notary/sessions/13/documents", token).body);
    }

    static std::string urlOf(const Json& document)
    {
        return reader::text(document, {"pdf_url", "file_url", "download_url"});
    }

    Reply download(const Json& document)
    {
        const std::string url = urlOf(document);
        return api.get("/" + url.substr(url.find("/files/")), {});
    }

    std::size_t filesOnDisk() const
    {
        const std::filesystem::directory_iterator files(bridge.data() / "uploads");
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    std::string token = tokenOf(client);
};

std::string everyByte()
{
    std::string bytes;
    for (unsigned i = 0; i < 70'000; ++i)
        bytes += static_cast<char>(i * i >> 3);
    return bytes + "\r\n--Boundary-6A1\r\n\r\n--";
}

} // namespace

TEST_F(Documents, KeepsNamesAndBytesAsTheyCame)
{
    const std::vector<Json> before = list();
    const std::vector<std::string> names{"plain.pdf", "with \"quotes\".pdf", "a blank.txt", "Übung ß.docx",
        "smile 😀🏽.png", "back\\slash.txt", "percent%22.txt", "semi;colon; filename=x.txt", "\"", ".",
        "..", "../../etc/passwd", std::string(255, 'x')};
    for (const std::string& name : names) {
        const std::string content = name + everyByte();
        const Reply reply
            = upload(formBody(desktopFields("A label", "government_id", 1), {{name, "image/png", content}}));
        ASSERT_EQ(reply.status, 201) << name << reply.text;
        EXPECT_EQ(reader::text(reader::object(reply.body), {"original_filename", "file_name"}), name);
        const Reply file = download(list().back());
        EXPECT_EQ(file.status, 200);
        EXPECT_TRUE(file.text == content) << name;
    }
    const std::vector<Json> after = list();
    ASSERT_EQ(after.size(), before.size() + names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const Json& document = after[before.size() + i];
        EXPECT_EQ(reader::text(document, {"original_filename", "file_name"}), names[i]);
        EXPECT_EQ(reader::text(document, {"document_name", "label"}), "A label");
        EXPECT_EQ(reader::number(document, {"file_size"}), names[i].size() + everyByte().size());
        EXPECT_EQ(reader::text(document, {"uploaded_by_name"}), "Priya Raman");
        EXPECT_TRUE(reader::number(document, {"id", "upload_id"}).has_value());
    }
}

TEST_F(Documents, KeepsTheFieldsThatCameWithThem)
{
    ASSERT_EQ(
        upload(formBody(desktopFields("Deed", "notarized_document", 1), {{"a.txt", "text/plain", "hello"}}))
            .status,
        201);
    const Json fields = Json::parse(stored("select fields_json from uploads order by id desc limit 1"));
    EXPECT_EQ(fields,
        Json({{"source", "macos_desktop_drag_drop"}, {"document_label", "Deed"},
            {"document_category", "notarized_document"}, {"file_count", "1"}, {"file_labels[0]", "Deed"},
            {"file_categories[0]", "notarized_document"}}));
    EXPECT_EQ(stored("select sha256 from uploads order by id desc limit 1"),
        "2cf24dba5fb0a30e26e83b2ac5b9e29e1b161e5c1fa7425e73043362938b9824");
    EXPECT_EQ(stored("select category || mime_type || byte_size from uploads order by id desc limit 1"),
        "notarized_documenttext/plain5");
}

TEST_F(Documents, ABatchOfTwoIsTwoDocuments)
{
    auto fields = desktopFields("Both", "supporting_document", 2);
    fields.emplace_back("file_labels[1]", "Second");
    const Reply reply = upload(
        formBody(fields, {{"1.pdf", "application/pdf", "%PDF one"}, {"2.pdf", "application/pdf", ""}}));
    ASSERT_EQ(reply.status, 201);
    EXPECT_EQ(reader::list(reply.body).size(), 2u);
    EXPECT_EQ(stored("select group_concat(original_filename || byte_size) from (select * from uploads order "
                     "by id desc limit 2)"),
        "2.pdf0,1.pdf8");
}

TEST_F(Documents, LiesAtAnAddressThatNobodyGuesses)
{
    ASSERT_EQ(
        upload(formBody(desktopFields("Ü", "x", 1), {{"Ünü \"x\".pdf", "application/pdf", "%PDF"}})).status,
        201);
    const Json document = list().back();
    const std::string url = urlOf(document);
    EXPECT_EQ(url.rfind("https://127.0.0.1:" + std::to_string(bridge.port()) + "/files/", 0), 0u) << url;
    EXPECT_EQ(reader::text(document, {"pdf_url"}), url);
    const Reply file = download(document);
    // The HTTP library of this test shows a header's value decoded.
    EXPECT_EQ(file.header("Content-Disposition"), "attachment; filename*=UTF-8''Ünü \"x\".pdf");
    EXPECT_EQ(file.header("X-Content-Type-Options"), "nosniff");
    EXPECT_EQ(file.header("Content-Security-Policy"), "sandbox");
    EXPECT_EQ(file.header("Referrer-Policy"), "no-referrer");
    EXPECT_EQ(file.header("Content-Type"), "application/pdf");

    const std::string path = "/" + url.substr(url.find("/files/"));
    EXPECT_EQ(api.get(path.substr(0, path.find("key=")) + "key=guess", {}).status, 404);
    EXPECT_EQ(api.get(path.substr(0, path.find('?')), {}).status, 404);
    EXPECT_EQ(api.get("//files/999?key=x", {}).status, 404);
}

TEST_F(Documents, AnAddressEndsAfterADay)
{
    const Json document = list().front();
    bridge.letPass(std::chrono::days(1) - std::chrono::milliseconds(1));
    EXPECT_EQ(download(document).status, 200);
    bridge.letPass(std::chrono::milliseconds(1));
    EXPECT_EQ(download(document).status, 404);
    token = tokenOf(client);
    EXPECT_EQ(download(list().front()).status, 200);
}

TEST_F(Documents, AnAddressOpensOneDocumentForOneDay)
{
    ASSERT_EQ(upload(formBody({}, {{"a", "a/b", "x"}, {"b", "a/b", "x"}})).status, 201);
    const std::vector<Json> documents = list();
    const std::string first = urlOf(documents[documents.size() - 2]);
    const std::string second = urlOf(documents.back());
    const auto statusOf = [this](const std::string& url) {
        return api.get("/" + url.substr(url.find("/files/")), {}).status;
    };
    const auto key = [](const std::string& url) { return url.substr(url.find('=') + 1); };
    EXPECT_EQ(statusOf(first), 200);
    EXPECT_EQ(statusOf(first.substr(0, first.find('=') + 1) + key(second)), 404);
    std::string later = first;
    ++later[later.find('=') + 1];
    EXPECT_EQ(statusOf(later), 404) << "another end than the one that was signed";
}

TEST_F(Documents, AddressesEndWhenTheSessionGoesToAnotherNotary)
{
    const Json document = list().front();
    const std::string office = tokenOf(admin);
    const auto assign = [&](long long who) {
        return api
            .post("/admin/remote-notary/sessions/13/assign", office,
                {{"status", "scheduled"}, {"assigned_notary_id", who}})
            .status;
    };
    ASSERT_EQ(assign(1), 200);
    const Json told = list().front();
    ASSERT_EQ(assign(1), 200);
    EXPECT_EQ(download(told).status, 200) << "the same notary";
    ASSERT_EQ(assign(3), 200);
    EXPECT_EQ(download(document).status, 404);
    EXPECT_EQ(download(told).status, 404);

    const Json last = list().front();
    EXPECT_EQ(download(last).status, 200);
    ASSERT_EQ(api.remove("/admin/notaries/3", office).status, 204);
    EXPECT_EQ(download(last).status, 404);
}

TEST_F(Documents, OfAnOpenCallHaveNamesAndNoAddressesUntilItIsAccepted)
{
    ASSERT_EQ(api.sendText("POST", "/remote-notary/sessions/24/documents", tokenOf(admin), formType,
                     formBody({}, {{"passport.pdf", "application/pdf", "%PDF"}, {"b.txt", "a/b", "x"}}))
                  .status,
        201);
    const std::string path = "/remote-notary/sessions/24/documents";
    const std::vector<Json> before = reader::list(api.get(path, tokenOf(notary)).body);
    ASSERT_GE(before.size(), 2u);
    for (const Json& document : before) {
        EXPECT_EQ(urlOf(document), "");
        EXPECT_NE(reader::text(document, {"original_filename", "file_name"}), "");
    }
    ASSERT_EQ(api.post("/notary/open-calls/24/accept", tokenOf(notary)).status, 200);
    for (const Json& document : reader::list(api.get(path, tokenOf(notary)).body))
        EXPECT_EQ(download(document).status, 200);
}

TEST_F(Documents, AMediaTypeIsRepeatedOnlyWhenItIsOne)
{
    for (const char* type : {"text/html\nX-Evil: 1", "", "nonsense", "a/b c"}) {
        ASSERT_EQ(upload(formBody({}, {{"a", type, "x"}})).status, 201);
        const Reply file = download(list().back());
        EXPECT_EQ(file.header("Content-Type"), "application/octet-stream");
        EXPECT_EQ(file.header("X-Evil"), "");
    }
}

TEST_F(Documents, RefusesWhatIsNoForm)
{
    const std::string good = formBody({}, {{"a.txt", "text/plain", "hello"}});
    const std::size_t before = filesOnDisk();
    EXPECT_EQ(upload(good, "application/json").status, 400);
    EXPECT_EQ(upload(good, "multipart/form-data").status, 400);
    EXPECT_EQ(upload(good, "multipart/form-data; boundary=").status, 400);
    EXPECT_EQ(upload(good, "multipart/form-data; boundary=other").status, 400);
    EXPECT_EQ(upload(good.substr(0, good.size() - 6)).status, 400);
    EXPECT_EQ(upload("").status, 400);
    EXPECT_EQ(upload(formBody(desktopFields("None", "x", 0), {})).status, 422);
    EXPECT_EQ(
        upload("--Boundary-6A1F\r\nContent-Type: text/plain\r\n\r\nx\r\n--Boundary-6A1F--\r\n").status, 400);
    EXPECT_EQ(filesOnDisk(), before);
    EXPECT_EQ(stored("select cast(count(*) as text) from uploads"), std::to_string(before));
}

TEST_F(Documents, GoWithTheirSession)
{
    const std::size_t before = filesOnDisk();
    ASSERT_EQ(upload(formBody({}, {{"a.txt", "text/plain", "hello"}})).status, 201);
    const Json document = list().back();
    ASSERT_EQ(api.remove("/admin/records/13", tokenOf(admin),
                     {{"record_type", "remote"}, {"source", "remote_notary_sessions"}})
                  .status,
        200);
    EXPECT_EQ(download(document).status, 404);
    EXPECT_EQ(filesOnDisk(), before - 1) << "the new one and the one of the demo data are gone";
}

TEST_F(Documents, AreRefusedWhereTheSessionHasGoneWhileTheirBytesCameIn)
{
    const std::string adminToken = tokenOf(admin);
    const std::string form = formBody({}, {{"a.txt", "text/plain", everyByte()}});
    const std::size_t half = form.size() / 2;
    const std::size_t before = filesOnDisk();
    const auto piece = [&](std::size_t offset, std::size_t, httplib::DataSink& sink) {
        if (offset == 0)
            return sink.write(form.data(), half);
        // Only who has been let in has a file that grows.
        while (filesOnDisk() == before)
            std::this_thread::yield();
        EXPECT_EQ(api.remove("/admin/records/13", adminToken,
                         {{"record_type", "remote"}, {"source", "remote_notary_sessions"}})
                      .status,
            200);
        return sink.write(form.data() + offset, form.size() - offset);
    };
    const httplib::Result result = api.client()->Post("/mobile-bridge/v1/remote-notary/sessions/13/documents",
        {{"Authorization", "Bearer " + token}}, form.size(), piece, formType);
    ASSERT_TRUE(result) << httplib::to_string(result.error());
    EXPECT_EQ(result->status, 404);
    EXPECT_EQ(filesOnDisk(), before - 1) << "the demo data's one went with the session";
    EXPECT_EQ(stored("select cast(count(*) as text) from uploads where session_id = 13"), "0");
}

namespace {

struct SmallBridge : testing::Test
{
    static RunningBridge::Wishes wishes()
    {
        RunningBridge::Wishes small;
        small.largestUpload = 1 << 20;
        return small;
    }

    RunningBridge bridge{wishes()};
    Api api = bridge.api();
    std::string token = api.tokenOf("priya.raman@example.com");
    httplib::Headers headers{{"Authorization", "Bearer " + token}, {"Content-Type", formType}};
    std::string path = "/mobile-bridge/v1/remote-notary/sessions/13/documents";
    Json refusal{{"message", "That file is larger than this server accepts."}};
};

} // namespace

TEST_F(SmallBridge, CountsTheBytesOfAStatedLength)
{
    const std::string head = formBody({}, {{"a", "a/b", ""}});
    const std::size_t room = (1 << 20) - head.size();
    const auto status = [&](std::size_t size) {
        return api.sendText("POST", "/remote-notary/sessions/13/documents", token, formType,
            formBody({}, {{"a", "a/b", std::string(size, 'x')}}));
    };
    EXPECT_EQ(status(room).status, 201);
    const Reply reply = status(room + 1);
    EXPECT_EQ(reply.status, 413);
    EXPECT_EQ(reply.body, refusal);
}

TEST_F(SmallBridge, CountsTheBytesOfChunks)
{
    const auto client = api.client();
    const std::string whole = formBody({}, {{"a", "a/b", ""}});
    const std::string start = whole.substr(0, whole.find("\r\n\r\n") + 4);
    std::size_t sent = 0;
    const httplib::Result result = client->Post(
        path, headers,
        [&](std::size_t, httplib::DataSink& sink) {
            const std::string piece = sent == 0 ? start : std::string(64 << 10, 'x');
            sink.write(piece.data(), piece.size());
            sent += piece.size();
            if (sent > 2 << 20)
                sink.done();
            return true;
        },
        formType);
    ASSERT_TRUE(result) << httplib::to_string(result.error());
    EXPECT_EQ(result->status, 413);
    EXPECT_EQ(Json::parse(result->body), refusal);
    const std::filesystem::directory_iterator files(bridge.data() / "uploads");
    for (const auto& file : files)
        EXPECT_NE(file.path().extension(), ".part");
}
