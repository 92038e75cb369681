#include "SessionDetailTest.h"

#include "Cases.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A step of the load, counted from 0, and the fields that are read from its answer.
struct LooseStep
{
    const char* name;
    qsizetype step;
    QByteArrayList fields;
};

void PrintTo(const LooseStep& row, std::ostream* out)
{
    *out << row.name;
}

/// A bridge that is careless about the types of its answers.
class SessionDetailLoose : public SessionDetailTest, public testing::WithParamInterface<LooseStep>
{
protected:
    /// Loads with such an answer to the parameter's step, and usual ones to all others.
    void loadWith(const QByteArray& loose)
    {
        load();
        std::array answers{scheduled, QByteArray("[]"), QByteArray("[]"), QByteArray("[]")};
        answers.at(size_t(GetParam().step)) = loose;
        for (const QByteArray& json : answers)
            answer(requestCount() - 1, json);
    }

    void expectAWholeLoad() const
    {
        EXPECT_TRUE(auth.isSignedIn());
        EXPECT_TRUE(alertOf(*model).isEmpty());
        EXPECT_FALSE(model->isLoading.value());
        EXPECT_TRUE(model->session().has_value());
        EXPECT_TRUE(model->messages()->isLoaded.value());
        EXPECT_TRUE(model->documents()->isLoaded.value());
        EXPECT_FALSE(model->hasEdits());
    }

    /// What stands on screen for want of anything better.
    void expectSensibleTexts() const
    {
        EXPECT_FALSE(model->status.value().isEmpty());
        EXPECT_FALSE(model->session()->displayDateTime().isEmpty());
        for (const SessionMessage& message : model->messages()->messages()) {
            EXPECT_FALSE(message.senderName.isEmpty());
            EXPECT_FALSE(SessionMessagesModel::roleTitle(message).isEmpty());
            EXPECT_FALSE(SessionMessagesModel::icon(message).isEmpty());
        }
        for (const RemoteDocumentUpload& document : model->documents()->documents()) {
            EXPECT_FALSE(document.displayName().isEmpty());
            EXPECT_FALSE(document.displayDetail().isEmpty());
            EXPECT_FALSE(SessionDocumentsModel::icon(document).isEmpty());
            EXPECT_FALSE(SessionDocumentsModel::canOpen(document));
        }
        for (const SessionDetailModel::Choice& choice : model->statusChoices() + model->notaryChoices())
            EXPECT_FALSE(choice.label.isEmpty());
    }

    qsizetype loadedRecords() const
    {
        const std::array counts{qsizetype(1), model->messages()->messages().size(),
            model->documents()->documents().size(), model->notaries().size()};
        return counts.at(size_t(GetParam().step));
    }

    bool isList() const { return GetParam().step > 0; }
};

TEST_P(SessionDetailLoose, AnyTypeInAnyFieldLoads)
{
    const QByteArrayList values{R"("text")", R"(" 12 ")", "12", "-1", "1.5", "null", R"("null")",
        R"("<null>")", "true", "[]", "[1]", R"(["a", 1, null, {}])", "[{}]", "{}", R"({"a": []})", R"("")",
        R"("  ")"};
    for (const QByteArray& field : GetParam().fields) {
        for (const QByteArray& value : values) {
            SCOPED_TRACE(field.toStdString() + ": " + value.toStdString());
            const QByteArray record = "{\"" + field + "\": " + value + "}";
            loadWith(isList() ? "[" + record + "]" : record);
            expectAWholeLoad();
            EXPECT_EQ(loadedRecords(), 1);
            expectSensibleTexts();
        }
    }
}

class SessionDetailLooseLists : public SessionDetailLoose
{ };

TEST_P(SessionDetailLooseLists, AreEmptyUnlessAllIsRecords)
{
    const QByteArrayList answers{"{}", "[1, 2]", R"([{"id": 1}, null])", R"([[{"id": 1}]])",
        R"({"data": {}})", R"({"messages": [[]], "documents": "none", "notaries": [null]})"};
    for (const QByteArray& json : answers) {
        SCOPED_TRACE(json.toStdString());
        loadWith(json);
        expectAWholeLoad();
        EXPECT_EQ(loadedRecords(), 0);
    }
}

const LooseStep session{"Session", 0,
    {"id", "session_id", "status", "scheduled_date", "preferred_date", "scheduled_time", "preferred_time",
        "proposed_fee", "status_note", "admin_notes", "assigned_notary_id", "assigned_notary_name",
        "requires_witness", "witness_name", "signers", "signer_names", "client_name", "client_email",
        "document_type", "reference_id", "created_at", "updated_at"}};
const LooseStep messages{"Messages", 1,
    {"id", "sender_type", "role", "sender_name", "name", "sender_email", "email", "message", "created_at"}};
const LooseStep documents{"Documents", 2,
    {"id", "upload_id", "original_filename", "file_name", "document_name", "label", "file_size", "created_at",
        "uploaded_by_name", "pdf_url", "file_url", "download_url"}};
const LooseStep notaryProfiles{
    "Notaries", 3, {"id", "notary_id", "user_id", "name", "full_name", "email", "active", "status"}};

INSTANTIATE_TEST_SUITE_P(
    Steps, SessionDetailLoose, testing::Values(session, messages, documents, notaryProfiles), ByName());
INSTANTIATE_TEST_SUITE_P(
    Steps, SessionDetailLooseLists, testing::Values(messages, documents, notaryProfiles), ByName());

/// Somebody assigned by any of these ids is shown as chosen, and sent as the number that the id is.
TEST_F(SessionDetailTest, ANotarysIdAsTextIsAnId)
{
    load();
    answer(0, R"({"id": "7", "assigned_notary_id": "12"})");
    answer(1, "[]");
    answer(2, "[]");
    answer(3, R"([{"id": "12", "name": "Maya Whitfield"}, {"notary_id": 13, "name": "Noor Haddad"}])");
    EXPECT_EQ(model->selectedNotaryId.value(), 12);
    EXPECT_EQ(model->notaryChoices(),
        (QList<SessionDetailModel::Choice>{{u"Maya Whitfield"_s, u"12"_s}, {u"Noor Haddad"_s, u"13"_s}}));
    start(&SessionDetailModel::saveAdmin);
    EXPECT_EQ(body(4).value(u"assigned_notary_id"_s), QJsonValue(12));
}

} // namespace
