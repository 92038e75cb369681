#include "SessionDetailViewTest.h"

#include "Components/ComboBox.h"
#include "Components/FieldGrid.h"
#include "Components/SymbolLine.h"
#include "Launch.h"
#include "Screens/Cases.h"
#include "Sessions/SessionDocumentsCard.h"
#include "Sessions/SessionMessagesCard.h"
#include "Sessions/SessionSummaryCard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class SessionDetailViewLayout : public SessionDetailViewTest
{
protected:
    QRect place(QWidget* widget) { return {widget->mapTo(view.get(), QPoint()), widget->size()}; }
    /// Where the control is that a caption names.
    QRect field(const QString& name, QWidget* card)
    {
        for (QWidget* widget : card->findChildren<QWidget*>()) {
            if (widget->accessibleName() == name && widget->focusPolicy() & Qt::TabFocus)
                return place(widget);
        }
        ADD_FAILURE() << "no control named " << name.toStdString();
        return {};
    }

    /// The names of what Tab stops at, from the Cancel button to this one.
    QStringList tabStops(const QString& last)
    {
        cancelButton()->setFocus();
        QStringList stops;
        while (stops.size() < 40 && (stops.isEmpty() || stops.constLast() != last)) {
            stops += QApplication::focusWidget()->accessibleName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        return stops;
    }
};

} // namespace

TEST_F(SessionDetailViewLayout, StandsInOneColumnBelowNineHundredPixels)
{
    openLoaded({899, 900});
    auto* messages = view->findChild<SessionMessagesCard*>();
    EXPECT_GT(place(messages).top(), place(adminCard()).bottom());
    EXPECT_EQ(place(messages).left(), place(adminCard()).left());
    EXPECT_EQ(place(adminCard()).width(), 760);
    EXPECT_EQ(place(adminCard()).left(), 20);
    EXPECT_EQ(place(adminCard()).top() - place(view->findChild<SessionSummaryCard*>()).bottom() - 1, 16);
}

TEST_F(SessionDetailViewLayout, StandsInTwoColumnsFromNineHundredPixels)
{
    openLoaded({960, 900});
    auto* summary = view->findChild<SessionSummaryCard*>();
    auto* messages = view->findChild<SessionMessagesCard*>();
    auto* documents = view->findChild<SessionDocumentsCard*>();
    EXPECT_EQ(place(messages).top(), place(summary).top());
    EXPECT_EQ(place(messages).left(), place(summary).right() + 21);
    EXPECT_EQ(place(messages).width(), place(summary).width());
    EXPECT_EQ(place(documents).left(), place(messages).left());
    EXPECT_EQ(place(documents).top(), place(messages).bottom() + 21);
    EXPECT_EQ(place(adminCard()).top(), place(summary).bottom() + 21) << "no card is stretched";
    EXPECT_EQ(place(messages).right(), 960 - 24 - 1);

    view->resize(700, 900);
    settle();
    EXPECT_GT(place(messages).top(), place(adminCard()).bottom());
    EXPECT_EQ(place(messages).top(), place(adminCard()).bottom() + 17);
}

TEST_F(SessionDetailViewLayout, ComesCloserTogetherWhereItIsNarrow)
{
    openLoaded({450, 900});
    EXPECT_EQ(place(adminCard()).left(), 16);
    EXPECT_EQ(place(adminCard()).top(), place(view->findChild<SessionSummaryCard*>()).bottom() + 17);
    EXPECT_EQ(place(control(u"Status"_s, adminCard())).left(), 16 + 1 + 16);
}

TEST_F(SessionDetailViewLayout, PutsThreeFieldsInARowWhereThereIsRoom)
{
    for (const AppRole role : {AppRole::notary, AppRole::admin}) {
        workAs(role);
        openLoaded({600, 900});
        QWidget* card = role == AppRole::admin ? adminCard() : notaryCard();
        const QRect status = field(u"Status"_s, card);
        EXPECT_EQ(field(u"Confirmed Date"_s, card).top(), status.top());
        EXPECT_EQ(field(u"Confirmed Time"_s, card).top(), status.top());
        EXPECT_NEAR(field(u"Confirmed Date"_s, card).width(), status.width(), 1);
        EXPECT_GT(field(u"Proposed Fee"_s, card).top(), status.bottom());
        const QRect note = field(u"Status Note"_s, card);
        EXPECT_EQ(note.left(), status.left());
        EXPECT_EQ(note.right(), field(u"Confirmed Time"_s, card).right()) << "a row to itself";
        EXPECT_EQ(note.height(), 56) << "two lines";
        if (role == AppRole::admin) {
            EXPECT_EQ(field(u"Assigned Notary"_s, card).top(), field(u"Proposed Fee"_s, card).top());
        } else {
            EXPECT_EQ(field(u"Witness Required"_s, card).bottom(), field(u"Proposed Fee"_s, card).bottom());
            EXPECT_GT(
                field(u"Witness Name / Notes"_s, card).top(), field(u"Witness Required"_s, card).bottom());
            EXPECT_EQ(field(u"Witness Name / Notes"_s, card).width(), note.width());
        }
    }
}

TEST_F(SessionDetailViewLayout, PutsTwoFieldsInARowWhereItIsNarrow)
{
    for (const AppRole role : {AppRole::notary, AppRole::admin}) {
        workAs(role);
        openLoaded({450, 900});
        QWidget* card = role == AppRole::admin ? adminCard() : notaryCard();
        const QRect date = field(u"Confirmed Date"_s, card);
        EXPECT_GT(date.top(), field(u"Status"_s, card).bottom());
        EXPECT_EQ(field(u"Confirmed Time"_s, card).top(), date.top());
        EXPECT_NEAR(field(u"Confirmed Time"_s, card).width(), date.width(), 1);
    }
    EXPECT_EQ(field(u"Assigned Notary"_s, adminCard()).top(), field(u"Proposed Fee"_s, adminCard()).top());
}

TEST_F(SessionDetailViewLayout, TheTabKeyGoesThroughItInReadingOrder)
{
    const QStringList asNotary{u"Cancel Session"_s, u"Status"_s, u"Confirmed Date"_s, u"Confirmed Time"_s,
        u"Proposed Fee"_s, u"Witness Required"_s, u"Witness Name / Notes"_s, u"Status Note"_s,
        u"Save Notary Update"_s};
    const QStringList asAdmin{u"Cancel Session"_s, u"Status"_s, u"Confirmed Date"_s, u"Confirmed Time"_s,
        u"Proposed Fee"_s, u"Assigned Notary"_s, u"Status Note"_s, u"Delete Session"_s,
        u"Save Admin Changes"_s};
    for (const QStringList& wanted : {asNotary, asAdmin}) {
        workAs(wanted == asAdmin ? AppRole::admin : AppRole::notary);
        openLoaded({600, 900});
        EXPECT_EQ(tabStops(wanted.constLast()), wanted);
        view->resize(450, 900);
        settle();
        EXPECT_EQ(tabStops(wanted.constLast()), wanted) << "also after the fields have moved";
    }
}

TEST_F(SessionDetailViewLayout, TheFactsStandInTwoHalvesWhateverTheySay)
{
    openLoaded({600, 900});
    const auto columns = [this] {
        QList<int> lefts;
        for (const auto* line : view->findChild<SessionSummaryCard*>()->findChildren<SymbolLine*>())
            lefts += place(const_cast<SymbolLine*>(line)).left();
        std::sort(lefts.begin(), lefts.end());
        lefts.erase(std::unique(lefts.begin(), lefts.end()), lefts.end());
        return lefts;
    };
    const QList<int> before = columns();
    ASSERT_EQ(before.size(), 2);
    const QRect card = place(view->findChild<SessionSummaryCard*>());
    EXPECT_NEAR(before.at(1), card.center().x() + 8, 2);
    for (const QByteArray& client :
        {QByteArray("Al"), QByteArray("A Very Long Name Of A Firm And Its Partners")}) {
        launch(model->load());
        settle();
        answerLoad(R"({"id": 7, "client_name": ")" + client + R"(", "document_type": "Will"})");
        settle();
        EXPECT_EQ(columns(), before) << client.constData();
    }
}

TEST_F(SessionDetailViewLayout, EveryControlHasANameAndEveryCardIsAGroup)
{
    for (const AppRole role : {AppRole::notary, AppRole::admin}) {
        workAs(role);
        openLoaded();
        for (QWidget* widget : view->findChildren<QWidget*>()) {
            if (!widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus))
                continue;
            const auto* accessible = QAccessible::queryAccessibleInterface(widget);
            EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << widget->metaObject()->className();
        }
        QWidget* card = role == AppRole::admin ? adminCard() : notaryCard();
        EXPECT_EQ(QAccessible::queryAccessibleInterface(card)->role(), QAccessible::Grouping);
    }
}
