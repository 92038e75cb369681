#include "DesktopEntry.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>

namespace {

struct Argument
{
    const char* name;
    QByteArray argument;
    QByteArray quoted;
};

void PrintTo(const Argument& argument, std::ostream* out)
{
    *out << argument.name;
}

class QuotedArgument : public testing::TestWithParam<Argument>
{ };

TEST_P(QuotedArgument, ReachesTheProgramAsItIs)
{
    EXPECT_EQ(DesktopEntry::quoted(GetParam().argument), GetParam().quoted);
}

INSTANTIATE_TEST_SUITE_P(Arguments, QuotedArgument,
    testing::Values(Argument{"Plain", "/usr/bin/notary", R"("/usr/bin/notary")"},
        Argument{"Empty", "", R"("")"}, Argument{"Blank", "a b", R"("a b")"},
        Argument{"Quote", R"(a"b)", R"("a\"b")"}, Argument{"Apostrophe", "a'b", R"("a'b")"},
        Argument{"Dollar", "$HOME", R"("\$HOME")"}, Argument{"Backtick", "`id`", R"("\`id\`")"},
        Argument{"Backslash", R"(a\b)", R"("a\\b")"}, Argument{"FieldCode", "100%f", R"("100%%f")"}),
    [](const auto& row) { return std::string(row.param.name); });

RC_GTEST_PROP(DesktopEntryValue, ReadsBackAsItWasWritten, ())
{
    const std::string alphabet = "ab \\\n\t\r%=#[]\"\xC3\xA4";
    const auto characters = *rc::gen::container<std::string>(rc::gen::elementOf(alphabet));
    const QByteArray text = QByteArray::fromStdString(characters);
    const DesktopEntry::Keys keys{{"Exec", "x"}, {"Name", DesktopEntry::escaped(text)}, {"Type", "y"}};
    const DesktopEntry::Keys read = DesktopEntry::read(DesktopEntry::write(keys));
    RC_ASSERT(read.size() == 3);
    RC_ASSERT(DesktopEntry::unescaped(read.value("Name")) == text);
}

TEST(DesktopEntryValue, AnUnknownEscapeStandsForItself)
{
    EXPECT_EQ(DesktopEntry::unescaped(R"(a\qb\)"), R"(a\qb\)");
    EXPECT_EQ(DesktopEntry::unescaped(R"(\s\t\n\r\\s)"), " \t\n\r\\s");
}

} // namespace
