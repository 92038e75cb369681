#include "EmailAddress.h"
#include "Rows.h"

using namespace Qt::StringLiterals;

namespace {

struct EmailRow : Named
{
    QString text;
    bool isValid;
};

class EmailAddress : public testing::TestWithParam<EmailRow>
{ };

TEST_P(EmailAddress, PassesOrFails)
{
    EXPECT_EQ(isValidEmail(GetParam().text), GetParam().isValid);
}

INSTANTIATE_TEST_SUITE_P(Texts, EmailAddress,
    testing::Values(EmailRow{{"Ordinary"}, u"ada@example.com"_s, true},
        EmailRow{{"SixCharacters"}, u"a@b.co"_s, true}, EmailRow{{"FiveCharacters"}, u"a@b.c"_s, true},
        EmailRow{{"FourCharacters"}, u"a@b."_s, false},
        EmailRow{{"FourCharactersBeyondTheFirstPlane"}, u"😀@😀."_s, false},
        EmailRow{{"FourCharactersOfWhichOneIsCombined"}, u"e\u0301@b."_s, false},
        EmailRow{{"FiveCharactersOfWhichOneIsCombined"}, u"e\u0301@b.c"_s, true},
        EmailRow{{"NoDot"}, u"a@bcd"_s, false}, EmailRow{{"DotBeforeTheSignOnly"}, u"a.b@cd"_s, false},
        EmailRow{{"DoubledSign"}, u"a@@b.co"_s, true}, EmailRow{{"SignAtEnd"}, u"a@b.co@"_s, true},
        EmailRow{{"ThreePieces"}, u"a@b@c.co"_s, false}, EmailRow{{"SignFirst"}, u"@b.co"_s, false},
        EmailRow{{"SignsOnly"}, u"@@@@@"_s, false}, EmailRow{{"NoSign"}, u"example.com"_s, false},
        EmailRow{{"NothingAfterSign"}, u"example@"_s, false}, EmailRow{{"Empty"}, {}, false},
        EmailRow{{"LeadingBlank"}, u" ada@example.com"_s, true},
        EmailRow{{"BlankFirstPiece"}, u" @b.co"_s, true},
        EmailRow{{"TrailingBlank"}, u"ada@example.com "_s, true},
        EmailRow{{"DotFirstInDomain"}, u"ab@.c"_s, true}),
    RowName());

} // namespace
