#include "SessionDetailTest.h"

#include "Cases.h"

#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

void PrintTo(const SessionDetailModel::Choice& choice, std::ostream* out)
{
    *out << choice.value.toStdString() << ' ' << choice.label.toStdString();
}

namespace {

using Unfinished = LeaveGuard::Unfinished;

const QByteArray reloaded = R"({"id": 7, "status": "completed", "scheduled_date": "2026-04-01",
    "scheduled_time": "9:00 AM", "proposed_fee": "50", "status_note": "Done.", "assigned_notary_id": 13,
    "requires_witness": false, "witness_name": "Nobody"})";

/// One field that is edited between two loads.
struct Edit
{
    const char* name;
    std::function<void(SessionDetailModel&)> type;
    std::function<bool(const SessionDetailModel&)> isKept;
    std::function<void(SessionDetailModel&)> undo;
};

class SessionDetailEdits : public SessionDetailTest, public testing::WithParamInterface<Edit>
{ };

TEST_P(SessionDetailEdits, CountAsUnfinishedUntilTheyAreUndone)
{
    loadWhole();
    EXPECT_EQ(model->unfinished(), Unfinished::nothing);
    GetParam().type(*model);
    EXPECT_TRUE(model->hasEdits());
    EXPECT_EQ(model->unfinished(), Unfinished::edits);
    GetParam().undo(*model);
    EXPECT_FALSE(model->hasEdits());
    EXPECT_EQ(model->unfinished(), Unfinished::nothing);
}

TEST_P(SessionDetailEdits, SurviveAReloadAndTheOtherFieldsAreRefreshed)
{
    loadWhole();
    GetParam().type(*model);
    loadWhole(reloaded);
    EXPECT_TRUE(GetParam().isKept(*model));
    EXPECT_TRUE(model->hasEdits());
    int refreshed = 0;
    refreshed += model->status.value() == u"completed"_s;
    refreshed += model->confirmedDate.value() == u"2026-04-01"_s;
    refreshed += model->confirmedTime.value() == u"9:00 AM"_s;
    refreshed += model->proposedFee.value() == u"50"_s;
    refreshed += model->statusNote.value() == u"Done."_s;
    refreshed += model->selectedNotaryId.value() == 13;
    refreshed += !model->requiresWitness.value();
    refreshed += model->witnessName.value() == u"Nobody"_s;
    EXPECT_EQ(refreshed, 7) << "all but the edited one";
}

template <typename Property, typename T>
Edit edit(const char* name, Property SessionDetailModel::*field, T typed, T loaded)
{
    return {name, [=](SessionDetailModel& model) { model.*field = typed; },
        [=](const SessionDetailModel& model) { return (model.*field).value() == typed; },
        [=](SessionDetailModel& model) { model.*field = loaded; }};
}

void PrintTo(const Edit& edit, std::ostream* out)
{
    *out << edit.name;
}

INSTANTIATE_TEST_SUITE_P(Fields, SessionDetailEdits,
    testing::Values(edit("Status", &SessionDetailModel::status, u"cancelled"_s, u"scheduled"_s),
        edit("Date", &SessionDetailModel::confirmedDate, u""_s, u"2026-03-12"_s),
        edit("Time", &SessionDetailModel::confirmedTime, u"3:00 PM"_s, u"2:30 PM"_s),
        edit("Fee", &SessionDetailModel::proposedFee, u"41.00 "_s, u"41.00"_s),
        edit("Note", &SessionDetailModel::statusNote, u"Half a"_s, u"Confirmed."_s),
        edit("Notary", &SessionDetailModel::selectedNotaryId, qint64(99), qint64(12)),
        edit("WitnessName", &SessionDetailModel::witnessName, u"Ele"_s, u"Elena"_s)),
    ByName());

TEST_F(SessionDetailTest, AFlippedSwitchSurvivesAReload)
{
    loadWhole();
    model->requiresWitness = false;
    EXPECT_EQ(model->unfinished(), Unfinished::edits);
    loadWhole();
    EXPECT_FALSE(model->requiresWitness.value());
    EXPECT_TRUE(model->hasEdits());
}

TEST_F(SessionDetailTest, AnEditThatTheBridgeHasMadeTooIsNoneAnyMore)
{
    loadWhole();
    model->status = u"completed"_s;
    loadWhole(R"({"id": 7, "status": "completed"})");
    EXPECT_EQ(model->status.value(), u"completed"_s);
    EXPECT_FALSE(model->hasEdits());
}

TEST_F(SessionDetailTest, TextTypedBeforeTheFirstAnswerIsKept)
{
    load();
    model->statusNote = u"Early bird"_s;
    answerLoad();
    EXPECT_EQ(model->statusNote.value(), u"Early bird"_s);
    EXPECT_TRUE(model->hasEdits());
}

TEST_F(SessionDetailTest, AFailedReloadChangesNoField)
{
    loadWhole();
    model->statusNote = u"Half a"_s;
    load();
    fail(requestCount() - 1);
    EXPECT_EQ(model->statusNote.value(), u"Half a"_s);
    EXPECT_EQ(model->proposedFee.value(), u"41.00"_s);
}

RC_GTEST_FIXTURE_PROP(SessionDetailTest, EveryFieldIsEitherKeptOrRefreshed, ())
{
    loadWhole();
    const auto notes = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 3));
    QString loaded = model->statusNote.value();
    QString shown = loaded;
    // A draft is kept through any number of loads, and a field without one follows each of them.
    for (const int note : notes) {
        const bool types = note == 0;
        if (types) {
            shown += u'x';
            model->statusNote = shown;
            continue;
        }
        const QString received = note == 1 ? u"one"_s : u"two"_s;
        if (shown == loaded)
            shown = received;
        loaded = received;
        loadWhole(R"({"id": 7, "status_note": ")" + received.toUtf8() + R"("})");
        RC_ASSERT(model->statusNote.value() == shown);
        RC_ASSERT((model->statusNote.value() != loaded) == model->hasEdits());
    }
}

TEST_F(SessionDetailTest, AHalfWrittenMessageAndPendingFilesAreUnfinished)
{
    loadWhole();
    model->messages()->newMessage = u"  "_s;
    EXPECT_EQ(model->unfinished(), Unfinished::nothing);
    model->messages()->newMessage = u"Thank you"_s;
    EXPECT_EQ(model->unfinished(), Unfinished::edits);
    model->messages()->newMessage = QString();
    model->documents()->addUploads({QUrl(u"file:///deed.pdf"_s)});
    EXPECT_EQ(model->unfinished(), Unfinished::edits);
    model->documents()->clearUploads();
    EXPECT_EQ(model->unfinished(), Unfinished::nothing);
}

// Pickers

using Choices = QList<SessionDetailModel::Choice>;

TEST_F(SessionDetailTest, OffersTheStatusesAndTheSessionsOwn)
{
    Choices all;
    for (const QString& option : SessionDetailModel::statusOptions())
        all += {option, option};
    EXPECT_EQ(model->statusChoices(), all);
    loadWhole();
    EXPECT_EQ(model->statusChoices(), all);
    loadWhole(R"({"id": 7, "status": "confirmed"})");
    all += {u"confirmed"_s, u"confirmed"_s};
    EXPECT_EQ(model->statusChoices(), all);
}

struct NotaryPicker
{
    const char* name;
    QByteArray session;
    QByteArray notaries;
    Choices choices;
};

class SessionDetailNotaries : public SessionDetailTest, public testing::WithParamInterface<NotaryPicker>
{ };

TEST_P(SessionDetailNotaries, AreOfferedToChooseFrom)
{
    load();
    answer(0, GetParam().session);
    answer(1, "[]");
    answer(2, "[]");
    answer(3, GetParam().notaries);
    EXPECT_EQ(model->notaryChoices(), GetParam().choices);
}

INSTANTIATE_TEST_SUITE_P(Pickers, SessionDetailNotaries,
    testing::Values(NotaryPicker{"Assigned", R"({"id": 7, "assigned_notary_id": 12})",
                        R"([{"id": 12, "name": "Maya"}, {"id": 13, "name": "Noor"}])",
                        {{u"Maya"_s, u"12"_s}, {u"Noor"_s, u"13"_s}}},
        NotaryPicker{"NobodyYet", R"({"id": 7})", R"([{"id": 12, "name": "Maya"}])",
            {{u"Not Assigned"_s, u"0"_s}, {u"Maya"_s, u"12"_s}}},
        NotaryPicker{"NobodyAndNone", R"({"id": 7})", "[]", {{u"Not Assigned"_s, u"0"_s}}},
        NotaryPicker{"AssignedButUnknown",
            R"({"id": 7, "assigned_notary_id": 5, "assigned_notary_name": "Ruth"})",
            R"([{"id": 12, "name": "Maya"}])", {{u"Maya"_s, u"12"_s}, {u"Ruth"_s, u"5"_s}}},
        NotaryPicker{"AssignedWithoutAName", R"({"id": 7, "assigned_notary_id": 5})", "[]",
            {{u"Assigned Notary"_s, u"5"_s}}},
        NotaryPicker{"WithoutAnId", R"({"id": 7, "assigned_notary_id": 12})",
            R"([{"name": "Nameless"}, {"id": 12, "name": "Maya"}])", {{u"Maya"_s, u"12"_s}}},
        NotaryPicker{"Namesakes", R"({"id": 7, "assigned_notary_id": 12})",
            R"([{"id": 12, "name": "Maya", "email": "a@example.com"}, {"id": 13, "name": "Maya"},
                {"id": 14, "name": "Maya", "email": "c@example.com"}])",
            {{u"Maya (a@example.com)"_s, u"12"_s}, {u"Maya"_s, u"13"_s},
                {u"Maya (c@example.com)"_s, u"14"_s}}}),
    ByName());

} // namespace
