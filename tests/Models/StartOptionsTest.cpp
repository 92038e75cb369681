#include "StartOptions.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Start
{
    const char* name;
    QStringList arguments;
    bool comesForward;
    QString action;
    QString fault;
};

void PrintTo(const Start& start, std::ostream* out)
{
    *out << start.name;
}

class StartOptionsTest : public testing::TestWithParam<Start>
{ };

TEST_P(StartOptionsTest, AreReadWholeOrRefused)
{
    const StartOptions options = StartOptions::of(GetParam().arguments);
    EXPECT_EQ(options.fault, GetParam().fault);
    if (!GetParam().fault.isEmpty())
        return;
    EXPECT_EQ(options.comesForward, GetParam().comesForward);
    EXPECT_EQ(options.action, GetParam().action);
}

INSTANTIATE_TEST_SUITE_P(Arguments, StartOptionsTest,
    testing::Values(Start{"None", {}, true, {}, {}}, Start{"Background", {u"--background"_s}, false, {}, {}},
        Start{"Booking", {u"--action=book-remote-notary"_s}, true, u"book-remote-notary"_s, {}},
        Start{"Sessions", {u"--action=sessions"_s}, true, u"sessions"_s, {}},
        Start{"AnActionComesForward", {u"--action=sessions"_s, u"--background"_s}, true, u"sessions"_s, {}},
        Start{"EmptyAction", {u"--action="_s}, true, {}, {}},
        Start{"OtherAction", {u"--action=settings"_s}, true, {}, u"There is no action \"settings\"."_s},
        Start{"OtherOption", {u"--verbose"_s}, true, {}, u"There is no option \"--verbose\"."_s},
        Start{"File", {u"deed.pdf"_s}, true, {}, u"There is no option \"deed.pdf\"."_s}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(StartInformation, IsGivenWhereItIsAskedFor)
{
    EXPECT_EQ(StartOptions::information({}, u"1.2"_s), QString());
    EXPECT_EQ(StartOptions::information({u"--background"_s}, u"1.2"_s), QString());
    EXPECT_EQ(StartOptions::information({u"--version"_s}, u"1.2"_s), u"Quorvel 1.2\n"_s);
    for (const QString& option : {u"--help"_s, u"-h"_s}) {
        const QString help = StartOptions::information({option}, u"1.2"_s);
        for (const QString& named :
            {u"--background"_s, u"--action="_s, u"book-remote-notary"_s, u"sessions"_s})
            EXPECT_TRUE(help.contains(named)) << named.toStdString();
    }
}

TEST(StartActions, LeadToTheirSections)
{
    EXPECT_EQ(StartOptions::sectionOf(u"book-remote-notary"_s), AppSection::book);
    EXPECT_EQ(StartOptions::sectionOf(u"sessions"_s), AppSection::sessions);
    for (const QString& other : {u""_s, u"Sessions"_s, u"sessions "_s, u"book"_s, u"settings"_s})
        EXPECT_EQ(StartOptions::sectionOf(other), std::nullopt) << other.toStdString();
}

} // namespace
