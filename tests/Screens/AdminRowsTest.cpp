#include "Screen/AdminRows.h"

#include "Cases.h"
#include "ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

struct Row
{
    const char* name;
    QByteArray raw;
    QString title;
    QString when;
    QString document;
    QString pill;
    bool isWalkIn;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class AdminRecordRow : public testing::TestWithParam<Row>
{ };

TEST_P(AdminRecordRow, FallsBackThroughItsKeys)
{
    const RowTexts row = AdminRows::record({5, JSONObject(object(GetParam().raw))});
    EXPECT_EQ(row.title, GetParam().title);
    EXPECT_EQ(row.secondary, GetParam().when);
    EXPECT_EQ(row.meta, GetParam().document);
    EXPECT_EQ(row.pill, GetParam().pill);
    EXPECT_EQ(
        row.metaIcon, GetParam().isWalkIn ? u"person.text.rectangle.fill"_s : u"video.badge.checkmark"_s);
}

const QString pending = u"Date pending"_s;
const QString requested = u"requested"_s;

INSTANTIATE_TEST_SUITE_P(Records, AdminRecordRow,
    testing::Values(Row{"Nothing", "{}", u"Unnamed record"_s, pending, {}, requested, false},
        Row{"Signers", R"({"signer_names": [" Ada ", "", "Bea"], "contact_name": "C"})", u"Ada, Bea"_s,
            pending, {}, requested, false},
        Row{"NoSigners", R"({"signer_names": [], "contact_name": "C"})", u"C"_s, pending, {}, requested,
            false},
        Row{"ClientName", R"({"signer_names": [], "client_name": "C", "name": "N"})", u"C"_s, pending, {},
            requested, false},
        Row{"MixedSigners", R"({"signer_names": ["A", 1], "signers": [{}, 2], "name": "N"})", u"N"_s, pending,
            {}, requested, false},
        Row{"WalkIn", R"({"type": "walkin", "status": "complete", "document_types": "Deed"})",
            u"Unnamed record"_s, pending, u"Deed"_s, u"Walk-In"_s, true},
        Row{"WalkInInAnyCase", R"({"record_type": "WalkIn", "status": "lost"})", u"Unnamed record"_s, pending,
            {}, u"Walk-In"_s, true},
        Row{"RecordTypeWins", R"({"record_type": "remote", "type": "walkin"})", u"Unnamed record"_s, pending,
            {}, requested, false},
        Row{"StatusAsReceived", R"({"status": " Done ", "preferred_date": "5/9", "scheduled_time": "2 PM"})",
            u"Unnamed record"_s, u"5/9 2 PM"_s, {}, u" Done "_s, false},
        Row{"Created", R"({"ny_datetime": "May 7", "document_type": "A", "document_types": "B"})",
            u"Unnamed record"_s, u"May 7"_s, u"A"_s, requested, false}),
    ByName());

} // namespace
