#include "SessionDetailTest.h"

#include "Cases.h"

#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

using Unfinished = LeaveGuard::Unfinished;

/// What a card of the detail sends by itself.
struct Sending
{
    const char* name;
    const char* line; ///< what it asks of the bridge
    /// Begins it with what would otherwise be lost.
    QCoro::Task<> (*begin)(SessionDetailModel& model, const QUrl& file);
};

void PrintTo(const Sending& row, std::ostream* out)
{
    *out << row.name;
}

class SessionDetailSendings : public SessionDetailTest, public testing::WithParamInterface<Sending>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(file_.open() && file_.write("a") == 1 && file_.flush());
        leaving.watch(&screen_, [this] { return model->unfinished(); });
        loadWhole();
        launch(GetParam().begin(*model, QUrl::fromLocalFile(file_.fileName())));
        settle();
        ASSERT_EQ(line(sent), QString::fromLatin1(GetParam().line));
    }

    /// Asks to leave the session; `hasLeft` when the way is free.
    void leave()
    {
        leaving.leave([this] { hasLeft = true; });
    }

    static constexpr qsizetype sent = 4;
    bool hasLeft = false;

private:
    QTemporaryFile file_;
    QObject screen_;
};

TEST_P(SessionDetailSendings, LetWhoWaitsToLeaveGoOnceTheyHaveArrived)
{
    EXPECT_EQ(model->unfinished(), Unfinished::work);
    leave();
    EXPECT_FALSE(hasLeft);
    answer(sent, "{}");
    EXPECT_TRUE(hasLeft);
    EXPECT_EQ(model->unfinished(), Unfinished::nothing);
    answer(sent + 1, "[]");
}

TEST_P(SessionDetailSendings, AskAboutWhatIsLeftOnceTheyHaveFailed)
{
    leave();
    const QString before = leaving.question.value()->title;
    fail(sent);
    EXPECT_FALSE(hasLeft);
    EXPECT_EQ(model->unfinished(), Unfinished::edits);
    ASSERT_TRUE(leaving.question.value().has_value());
    EXPECT_NE(leaving.question.value()->title, before);
}

TEST_P(SessionDetailSendings, ArriveAndAreFollowedByNothingWhenTheDetailIsClosed)
{
    model->close();
    answer(sent, "{}");
    EXPECT_EQ(requestCount(), sent + 1);
    EXPECT_EQ(model->unfinished(), Unfinished::nothing);
}

INSTANTIATE_TEST_SUITE_P(Of, SessionDetailSendings,
    testing::Values(Sending{"AMessage", "POST /remote-notary/sessions/7/messages",
                        [](SessionDetailModel& model, const QUrl&) {
                            model.messages()->newMessage = u"Thank you"_s;
                            return model.messages()->sendMessage();
                        }},
        Sending{"AFile", "POST /remote-notary/sessions/7/documents",
            [](SessionDetailModel& model, const QUrl& file) {
                model.documents()->addUploads({file});
                return model.documents()->uploadPendingFiles();
            }}),
    ByName());

} // namespace
