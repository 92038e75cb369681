#include "Http/ByteRange.h"
#include "support/Reader.h"
#include "support/RunningBridge.h"

using bridge::ByteRange;
using bridge::readRange;

namespace {

constexpr ByteRange whole{ByteRange::Kind::Whole, 0, 0};
constexpr ByteRange unsatisfiable{ByteRange::Kind::Unsatisfiable, 0, 0};

constexpr ByteRange part(std::uint64_t begin, std::uint64_t length)
{
    return {ByteRange::Kind::Part, begin, length};
}

} // namespace

TEST(ByteRange, IsReadAgainstTheSizeOfTheFile)
{
    const struct
    {
        const char* text;
        std::uint64_t size;
        ByteRange range;
    } rows[] = {
        {"bytes=0-0", 100, part(0, 1)},
        {"bytes=0-99", 100, part(0, 100)},
        {"bytes=10-19", 100, part(10, 10)},
        {"Bytes=10-19", 100, part(10, 10)},
        {"bytes=99-", 100, part(99, 1)},
        {"bytes=0-", 100, part(0, 100)},
        {"bytes=-1", 100, part(99, 1)},
        {"bytes=-100", 100, part(0, 100)},
        {"bytes=-1000", 100, part(0, 100)},
        {"bytes=0-100", 100, part(0, 100)},
        {"bytes=50-9223372036854775807", 100, part(50, 50)},
        {"bytes=50-99999999999999999999999", 100, part(50, 50)},
        {"bytes=-99999999999999999999999", 100, part(0, 100)},
        {"bytes=100-", 100, unsatisfiable},
        {"bytes=100-200", 100, unsatisfiable},
        {"bytes=99999999999999999999999-", 100, unsatisfiable},
        {"bytes=-0", 100, unsatisfiable},
        {"bytes=0-", 0, unsatisfiable},
        {"bytes=-5", 0, unsatisfiable},
        {"", 100, whole},
        {"bytes", 100, whole},
        {"bytes=", 100, whole},
        {"bytes=-", 100, whole},
        {"bytes=x", 100, whole},
        {"bytes=5", 100, whole},
        {"bytes=5-4", 100, whole},
        {"bytes=0x5-", 100, whole},
        {"bytes=1-2x", 100, whole},
        {"bytes=+1-2", 100, whole},
        {"bytes= 1-2", 100, whole},
        {"bytes=--1", 100, whole},
        {"bytes=1-2-3", 100, whole},
        {"bytes=0-1,5-6", 100, whole},
        {"items=0-1", 100, whole},
    };
    for (const auto& row : rows) {
        const ByteRange range = readRange(row.text, row.size);
        EXPECT_EQ(range, row.range) << row.text << " of " << row.size << ": " << range.begin << '+'
                                    << range.length;
    }
}

using Download = BridgeTest;

TEST_F(Download, AnswersRanges)
{
    const std::string content = "0123456789";
    const std::string token = tokenOf(client);
    const Reply uploaded = api.sendText("POST", "/remote-notary/sessions/13/documents", token, formType,
        formBody({}, {{"a.txt", "text/plain", content}}));
    ASSERT_EQ(uploaded.status, 201);
    const std::string url
        = reader::text(reader::object(uploaded.body), {"pdf_url", "file_url", "download_url"});
    const std::string path = url.substr(url.find("/files/"));
    const struct
    {
        const char* range;
        int status;
        const char* contentRange;
        const char* body;
    } rows[] = {
        {"bytes=2-4", 206, "bytes 2-4/10", "234"},
        {"bytes=5-1000", 206, "bytes 5-9/10", "56789"},
        {"bytes=-3", 206, "bytes 7-9/10", "789"},
        {"bytes=0-9223372036854775807", 206, "bytes 0-9/10", "0123456789"},
        {"bytes=10-", 416, "bytes */10", R"({"message":"The file does not have that part."})"},
        {"bytes=x", 200, "", "0123456789"},
        {"bytes=0-1,3-4", 200, "", "0123456789"},
    };
    for (const auto& row : rows) {
        const httplib::Result result = api.client()->Get(path, {{"Range", row.range}});
        ASSERT_TRUE(result) << row.range << ' ' << httplib::to_string(result.error());
        EXPECT_EQ(result->status, row.status) << row.range;
        EXPECT_EQ(result->get_header_value("Content-Range"), row.contentRange) << row.range;
        EXPECT_EQ(result->body, row.body) << row.range;
        EXPECT_EQ(result->get_header_value("Content-Length"), std::to_string(result->body.size()))
            << row.range;
    }
    const httplib::Result conditional
        = api.client()->Get(path, {{"Range", "bytes=2-4"}, {"If-Range", "\"another\""}});
    EXPECT_EQ(conditional->status, 200) << "of another version, the whole is wanted";
    const httplib::Result head = api.client()->Head(path, {{"Range", "bytes=2-4"}});
    EXPECT_EQ(head->status, 200);
    EXPECT_EQ(head->get_header_value("Content-Length"), "10");
}
