#include "AdminViewTest.h"

#include "Components/SearchField.h"
#include "Screens/Cases.h"
#include "SymbolsOn.h"

using namespace Qt::StringLiterals;

using testing::Contains;
using testing::IsSupersetOf;
using testing::Not;

namespace {

/// What a list of the administration says and shows besides its rows.
struct Words
{
    const char* name;
    void (AdminViewTest::*open)(const QByteArray& list);
    QString searchPlaceholder;
    QStringList noneFound;
    QString placeholderSymbol; ///< of both placeholders
    QStringList pane;
    QString saveSymbol;
};

class AdminWords : public AdminViewTest, public testing::WithParamInterface<Words>
{
public:
    using AdminViewTest::openNotaries;
    using AdminViewTest::openRecords;
    using AdminViewTest::openUsers;
};

TEST_P(AdminWords, WhenThereIsNothing)
{
    (this->*GetParam().open)("[]");
    EXPECT_THAT(texts(*view), IsSupersetOf(GetParam().noneFound));
    EXPECT_EQ(view->findChild<SearchField*>()->placeholderText(), GetParam().searchPlaceholder);
    EXPECT_EQ(symbolsOn(*view),
        QStringList(
            {u"Refresh: arrow.clockwise"_s, GetParam().placeholderSymbol, GetParam().placeholderSymbol}));
}

TEST_P(AdminWords, OfTheSelectedRecord)
{
    (this->*GetParam().open)(R"([{"id": 1}])");
    clickRow(0);
    EXPECT_THAT(texts(*view), IsSupersetOf(GetParam().pane));
    EXPECT_THAT(symbolsOn(*view), IsSupersetOf({u"Delete: trash"_s, GetParam().saveSymbol}));
    EXPECT_THAT(symbolsOn(*view), Not(Contains(GetParam().placeholderSymbol)));
}

INSTANTIATE_TEST_SUITE_P(Screens, AdminWords,
    testing::Values(Words{"Records", &AdminWords::openRecords, u"Search records, signers, status, email"_s,
                        {u"No Records Found"_s, u"Select a Record"_s}, u"tray.full.fill"_s,
                        {u"Record Details"_s, u"Signers"_s, u"No signer names found."_s},
                        u"Save Record: checkmark.circle"_s},
        Words{"Users", &AdminWords::openUsers, u"Search name, email, phone, role"_s,
            {u"No Users Found"_s, u"Select a User"_s}, u"person.3.fill"_s, {u"User Details"_s},
            u"Save User: checkmark.circle"_s},
        Words{"Notaries", &AdminWords::openNotaries, u"Search notary name, email, county, state"_s,
            {u"No Notaries Found"_s, u"Select a Notary"_s}, u"person.badge.shield.checkmark.fill"_s,
            {u"Notary Details"_s}, u"Save Notary: checkmark.circle"_s}),
    ByName());

} // namespace
