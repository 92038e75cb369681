#include "Screen/EditField.h"

#include "Printing.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class EditFieldTest : public testing::Test
{
protected:
    QList<AnyEditField*> pane;
    EditField<QString> field{pane};
};

TEST_F(EditFieldTest, BelongsToItsPane)
{
    EXPECT_EQ(pane, QList<AnyEditField*>{&field});
}

TEST_F(EditFieldTest, TakesWhatItReceives)
{
    EXPECT_FALSE(field.isEdited());
    field.receive(u"a"_s, false);
    EXPECT_EQ(field.value(), u"a"_s);
    EXPECT_FALSE(field.isEdited());
}

TEST_F(EditFieldTest, KeepsAnEdit)
{
    field.receive(u"a"_s, false);
    field = u"mine"_s;
    EXPECT_TRUE(field.isEdited());
    field.receive(u"b"_s, false);
    EXPECT_EQ(field.value(), u"mine"_s);
    EXPECT_TRUE(field.isEdited());
    field = u"b"_s;
    EXPECT_FALSE(field.isEdited());
}

TEST_F(EditFieldTest, IsSavedAsItWasSent)
{
    field = u"sent"_s;
    field.markSent();
    field = u"later"_s;
    field.markSaved();
    EXPECT_TRUE(field.isEdited());
    field = u"sent"_s;
    EXPECT_FALSE(field.isEdited());
}

TEST_F(EditFieldTest, AFailedSaveLeavesTheEdit)
{
    field = u"sent"_s;
    field.markSent();
    EXPECT_TRUE(field.isEdited());
}

TEST_F(EditFieldTest, KeepsWhatWasTypedUntilThereIsNews)
{
    field = u" typed "_s;
    field.markSent();
    field.markSaved();
    field.receive(u"typed"_s, true);
    EXPECT_EQ(field.value(), u" typed "_s);
    EXPECT_FALSE(field.isEdited());
    field.receive(u"typed"_s, false);
    EXPECT_EQ(field.value(), u" typed "_s);
    field.receive(u"news"_s, false);
    EXPECT_EQ(field.value(), u"news"_s);
}

} // namespace
