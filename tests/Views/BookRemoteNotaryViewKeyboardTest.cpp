#include "BookRemoteNotaryViewTest.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class BookRemoteNotaryViewKeyboard : public BookRemoteNotaryViewTest,
                                     public testing::WithParamInterface<QSize>
{
protected:
    /// The names of all controls in the order in which Tab comes to them, or Shift+Tab from the last one.
    /// A control with several stops, such as a date, counts once.
    QList<QString> round(Qt::Key key)
    {
        QWidget* start = key == Qt::Key_Tab ? named(u"Name"_s, contact()) : submitButton();
        start->setFocus();
        QList<QString> names;
        const QWidget* last = nullptr;
        do {
            if (QApplication::focusWidget() != last)
                names += focused();
            last = QApplication::focusWidget();
            press(key, key == Qt::Key_Tab ? Qt::NoModifier : Qt::ShiftModifier);
        } while (QApplication::focusWidget() != start && names.size() < 100);
        return names;
    }
};

const QList<QString> contactFields{u"Name"_s, u"Email"_s, u"Phone"_s};
const QList<QString> signerFields{u"Name"_s, u"Email"_s, u"Phone"_s, u"ID Type"_s, u"ID Expiration"_s};
const QList<QString> fieldsBetween{u"No-Rush Document Retrieval"_s, u"ASAP, earliest available"_s,
    u"Preferred Date & Time"_s, u"Number of Signatures"_s, u"Unknown"_s, u"Document Type"_s,
    u"What needs to be notarized?"_s};
const QString label = u"Document label, e.g. Passport, Power of Attorney, Closing Package"_s;

} // namespace

TEST_P(BookRemoteNotaryViewKeyboard, TabGoesThroughTheFormInReadingOrder)
{
    show(GetParam());
    model->addSigner();
    attach({u"deed.pdf"_s, u"map.png"_s});
    const QList<QString> expected = contactFields + fieldsBetween + signerFields + signerFields
        + QList<QString>{u"Add Signer"_s, u"Remove Signer"_s, u"Witness Required"_s, u"Apostille Needed"_s,
            u"Additional Notes"_s, u"Choose Files"_s, u"Clear"_s, label, u"Remove deed.pdf"_s, u"Type"_s,
            label, u"Remove map.png"_s, u"Type"_s, u"Submit Remote Notary Request"_s};
    EXPECT_EQ(round(Qt::Key_Tab).join(u"; "), expected.join(u"; "));
    QList<QString> backwards = expected;
    std::reverse(backwards.begin(), backwards.end());
    EXPECT_EQ(round(Qt::Key_Backtab).join(u"; "), backwards.join(u"; "));
}

TEST_P(BookRemoteNotaryViewKeyboard, WhatHasTheFocusIsInView)
{
    show(GetParam());
    QWidget* start = named(u"Name"_s, contact());
    start->setFocus();
    do {
        const QWidget* focus = QApplication::focusWidget();
        EXPECT_FALSE(focus->visibleRegion().isEmpty()) << qUtf8Printable(focused());
        press(Qt::Key_Tab);
    } while (QApplication::focusWidget() != start);
}

INSTANTIATE_TEST_SUITE_P(Sizes, BookRemoteNotaryViewKeyboard,
    testing::Values(QSize(760, 648), QSize(960, 728), QSize(1680, 1048)),
    [](const auto& size) { return std::to_string(size.param.width()); });

using BookRemoteNotaryViewTyped = BookRemoteNotaryViewTest;

TEST_F(BookRemoteNotaryViewTyped, ASessionIsBookedByKeyboardAlone)
{
    show();
    const auto enter = [](const QString& text) { type(QApplication::focusWidget(), text); };
    tabTo(u"Name"_s);
    enter(u"Ada Client"_s);
    tabTo(u"Email"_s);
    enter(u"ada@example.com"_s);
    tabTo(u"Phone"_s);
    enter(u"555 0100"_s);
    tabTo(u"No-Rush Document Retrieval"_s);
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), u"Priority Document Retrieval (Rush)"_s);
    tabTo(u"ASAP, earliest available"_s);
    press(Qt::Key_Space);
    tabTo(u"Number of Signatures"_s);
    press(Qt::Key_Up);
    tabTo(u"Document Type"_s);
    press(Qt::Key_Down);
    tabTo(u"What needs to be notarized?"_s);
    enter(u"Sign the deed"_s);
    tabTo(u"Name"_s);
    enter(u"Grace Signer"_s);
    tabTo(u"ID Type"_s);
    press(Qt::Key_Down);
    tabTo(u"Witness Required"_s);
    press(Qt::Key_Space);
    tabTo(u"Submit Remote Notary Request"_s);
    press(Qt::Key_Return);

    ASSERT_EQ(line(1), u"POST /remote-notary/sessions"_s);
    const QJsonObject sent = body(1);
    EXPECT_EQ(sent.value(u"contact_name").toString(), u"Ada Client"_s);
    EXPECT_EQ(sent.value(u"contact_email").toString(), u"ada@example.com"_s);
    EXPECT_EQ(sent.value(u"contact_phone").toString(), u"555 0100"_s);
    EXPECT_EQ(sent.value(u"document_retrieval_option").toString(), u"priority"_s);
    EXPECT_TRUE(sent.value(u"appointment_asap").toBool());
    EXPECT_EQ(sent.value(u"notary_act_count").toInt(), 2);
    EXPECT_EQ(sent.value(u"document_type").toString(), u"Jurat / Affidavit"_s);
    EXPECT_EQ(sent.value(u"remote_signing_details").toString(), u"Sign the deed"_s);
    EXPECT_EQ(sent.value(u"signer_name_1").toString(), u"Grace Signer"_s);
    EXPECT_EQ(sent.value(u"signer_id_type_1").toString(), u"NY Driver License"_s);
    EXPECT_TRUE(sent.value(u"requires_witness").toBool());

    answer(1, R"({"id":7,"reference_id":"RN-7"})");
    EXPECT_EQ(focused(), u"View Sessions"_s);
    press(Qt::Key_Space);
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
}
