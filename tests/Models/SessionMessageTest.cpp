#include "SessionMessage.h"

#include "RecordId.h"
#include "Rows.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

TEST(SessionMessage, IsReadFromItsOwnKeys)
{
    const SessionMessage message = SessionMessage::fromRaw(jsonObject(
        R"({"id":"7","sender_type":"notary","sender_name":"Ada","sender_email":"ada@example.com",
            "message":" Hello ","created_at":"May 1","role":"x","name":"x","email":"x"})"));
    EXPECT_EQ(
        message, (SessionMessage{7, u"notary"_s, u"Ada"_s, u"ada@example.com"_s, u" Hello "_s, u"May 1"_s}));
}

TEST(SessionMessage, DiffersWhenAnyFieldDiffers)
{
    const SessionMessage message{1, u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s};
    EXPECT_NE(message, (SessionMessage{2, u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s}));
    EXPECT_NE(message, (SessionMessage{1, u"x"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s}));
    EXPECT_NE(message, (SessionMessage{1, u"a"_s, u"x"_s, u"c"_s, u"d"_s, u"e"_s}));
    EXPECT_NE(message, (SessionMessage{1, u"a"_s, u"b"_s, u"x"_s, u"d"_s, u"e"_s}));
    EXPECT_NE(message, (SessionMessage{1, u"a"_s, u"b"_s, u"c"_s, u"x"_s, u"e"_s}));
    EXPECT_NE(message, (SessionMessage{1, u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"x"_s}));
}

TEST(RandomRecordId, HasSevenDigitsAndSpreads)
{
    QSet<qint64> seen;
    bool isInLowerHalf = false;
    bool isInUpperHalf = false;
    for (int count = 0; count < 1'000; ++count) {
        const qint64 id = randomRecordId();
        ASSERT_GE(id, 1'000'000);
        ASSERT_LE(id, 9'999'999);
        seen.insert(id);
        (id < 5'500'000 ? isInLowerHalf : isInUpperHalf) = true;
    }
    EXPECT_TRUE(isInLowerHalf);
    EXPECT_TRUE(isInUpperHalf);
    EXPECT_GT(seen.size(), 900);
}

} // namespace
