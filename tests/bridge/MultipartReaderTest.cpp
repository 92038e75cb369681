#include "Http/MultipartReader.h"

#include "Http/Problem.h"
#include "support/Api.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace bridge;

namespace {

struct Part
{
    PartHead head;
    std::string content;
    bool hasEnded = false;
};

/// Reads a form in pieces of these sizes, the last one repeated.
class Reading
{
public:
    explicit Reading(const std::string& body, std::size_t piece = 4096, const std::string& type = formType)
        : reader_(type,
            {[this](const PartHead& head) {
                 parts.push_back({head, {}});
             },
                [this](const char* bytes, std::size_t size) { parts.back().content.append(bytes, size); },
                [this] { parts.back().hasEnded = true; }})
    {
        for (std::size_t start = 0; start < body.size(); start += piece)
            reader_.feed(body.data() + start, std::min(piece, body.size() - start));
    }

    bool isComplete() const { return reader_.isComplete(); }

    std::vector<Part> parts;

private:
    MultipartReader reader_;
};

bool isRefused(const std::string& body, const std::string& type = formType)
{
    try {
        const Reading reading(body, 7, type);
        return false;
    } catch (const Problem& problem) {
        return problem.status() == 400;
    }
}

} // namespace

TEST(MultipartReader, ReadsFieldsAndFiles)
{
    const Reading reading(formBody(
        {{"a", "1"}, {"b[0]", ""}}, {{"x \"y\".pdf", "image/png", "bytes"}, {"", "text/plain", ""}}));
    ASSERT_EQ(reading.parts.size(), 4u);
    EXPECT_TRUE(reading.isComplete());
    EXPECT_FALSE(reading.parts[0].head.isFile);
    EXPECT_EQ(reading.parts[0].head.name, "a");
    EXPECT_EQ(reading.parts[0].content, "1");
    EXPECT_EQ(reading.parts[1].head.name, "b[0]");
    EXPECT_EQ(reading.parts[1].content, "");
    EXPECT_TRUE(reading.parts[2].head.isFile);
    EXPECT_EQ(reading.parts[2].head.name, "desktop_files[]");
    EXPECT_EQ(reading.parts[2].head.fileName, "x \"y\".pdf");
    EXPECT_EQ(reading.parts[2].head.contentType, "image/png");
    EXPECT_EQ(reading.parts[2].content, "bytes");
    EXPECT_TRUE(reading.parts[3].head.isFile);
    EXPECT_EQ(reading.parts[3].head.fileName, "");
}

TEST(MultipartReader, IgnoresWhatStandsBeforeAndBehind)
{
    const Reading reading("preamble\r\n" + formBody({{"a", "1"}}, {}) + "epilogue --Boundary-6A1F\r\n");
    ASSERT_EQ(reading.parts.size(), 1u);
    EXPECT_EQ(reading.parts[0].content, "1");
}

TEST(MultipartReader, AcceptsAQuotedBoundary)
{
    const std::string type = "Multipart/Form-Data; charset=utf-8; boundary=\"Boundary-6A1F\"";
    EXPECT_EQ(Reading(formBody({{"a", "1"}}, {}), 4096, type).parts.size(), 1u);
}

TEST(MultipartReader, AnEarlyEndIsNotComplete)
{
    const std::string body = formBody({{"a", "1"}}, {{"f", "a/b", "content"}});
    for (std::size_t size = 0; size < body.size() - 2; ++size)
        EXPECT_FALSE(Reading(body.substr(0, size)).isComplete()) << size;
}

TEST(MultipartReader, RefusesWhatIsNoForm)
{
    const std::string start = "--Boundary-6A1F";
    const std::string head = "\r\nContent-Disposition: form-data; name=\"a\"";
    EXPECT_FALSE(isRefused(start + head + "\r\n\r\nx"));
    EXPECT_TRUE(isRefused(start + "x" + head + "\r\n\r\nx"));
    EXPECT_TRUE(isRefused(start + "\r\n\r\nx")) << "no head";
    EXPECT_TRUE(isRefused(start + "\r\nContent-Disposition: form-data\r\n\r\nx")) << "no name";
    EXPECT_TRUE(isRefused(start + "\r\nContent-Disposition: form-data; name=\"a\r\n\r\nx")) << "half a name";
    EXPECT_TRUE(isRefused(start + head + "; filename=\"" + std::string(20'000, 'x'))) << "an endless head";
    EXPECT_TRUE(isRefused("", "text/plain; boundary=x"));
    EXPECT_TRUE(isRefused("", "multipart/form-data"));
    EXPECT_TRUE(isRefused("", "multipart/form-data; boundary=\"\""));
    EXPECT_TRUE(isRefused("", "multipart/form-data; boundary=" + std::string(71, 'x')));
}

// Bytes that look like the beginnings of a delimiter, in pieces of any size.
RC_GTEST_PROP(MultipartReader, GivesBackEveryByteHoweverTheBodyIsCut, ())
{
    const auto content = [] {
        const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
            "\r\n", "--", "\r\n--Boundary-6A1", "Boundary", "\r", "-", "x", "\r\n--"));
        std::string text;
        for (const std::string& piece : pieces)
            text += piece;
        return text;
    };
    const std::string field = content();
    const std::string file = content();
    const std::string name
        = *rc::gen::container<std::string>(rc::gen::element('a', '"', ';', ' ', '=', '\\', '\n'));
    const std::size_t piece = *rc::gen::inRange<std::size_t>(1, 64);

    const Reading reading(formBody({{"f", field}}, {{name, "a/b", file}}), piece);
    RC_ASSERT(reading.isComplete());
    RC_ASSERT(reading.parts.size() == 2u);
    RC_ASSERT(reading.parts[0].content == field);
    RC_ASSERT(reading.parts[1].content == file);
    RC_ASSERT(reading.parts[1].head.fileName == name);
    RC_ASSERT(reading.parts[0].hasEnded && reading.parts[1].hasEnded);
}

RC_GTEST_PROP(MultipartReader, MeetsAnyBytesWithoutHarm, (const std::string& noise))
{
    try {
        const Reading reading("--Boundary-6A1F" + noise, 3);
        RC_ASSERT(reading.parts.size() <= 1u);
    } catch (const Problem& problem) {
        RC_ASSERT(problem.status() == 400);
    }
}
