#include "Components/AlertDialog.h"
#include "ScreensViewTest.h"
#include "Shell/MainWindow.h"
#include "Shell/MenuBarDropdownModel.h"
#include "support/ApiKey.h"
#include "support/SteadyAppearance.h"

#include <QLineEdit>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The window of somebody who holds every role and whose stored token may be old.
class MainWindowAppears : public ScreensViewTest, public testing::WithParamInterface<AppSection>
{
protected:
    MainWindowAppears()
    {
        storeApiKey(resources.path(), u"key"_s);
        config.resourceFolder = resources.path();
        signIn(account(u"Maya"_s, {AppRole::business, AppRole::notary, AppRole::admin}), AppRole::admin);
    }

    /// Answers everything that waits, and what is asked for after that.
    void answerAll()
    {
        while (!webSession->pending().isEmpty()) {
            const qsizetype number = webSession->pending().constFirst();
            answer(number, request(number).url.path() == u"/v1/token"_s ? "{}" : "[]");
        }
    }
    /// The requests from one on, without the renewals.
    QStringList linesFrom(qsizetype first)
    {
        QStringList lines;
        for (qsizetype number = first; number < requestCount(); ++number) {
            if (request(number).url.path() != u"/v1/token"_s)
                lines += line(number);
        }
        lines.sort();
        return lines;
    }
    void expectRenewalAloneAt(qsizetype number)
    {
        settle();
        ASSERT_EQ(requestCount(), number + 1);
        EXPECT_EQ(request(number).url.path(), u"/v1/token"_s);
    }
    /// Every request after the renewal with this number carries the token that it has brought.
    void expectNewTokenAfter(qsizetype renewal)
    {
        answer(renewal, R"({"id_token": "fresh", "refresh_token": "next"})");
        ASSERT_GT(requestCount(), renewal + 1);
        for (qsizetype number = renewal + 1; number < requestCount(); ++number)
            EXPECT_EQ(header(number, "Authorization"), QByteArray("Bearer fresh"))
                << line(number).toStdString();
        answerAll();
    }

    QTemporaryDir resources;
    SteadyAppearance desktop;
    AppearanceModel appearance{defaults, desktop};
    MainWindowModel model{context};
    MainWindow window{model, appearance};
};

TEST_P(MainWindowAppears, AtFirstOnASectionWithTheRenewalAhead)
{
    router.open(GetParam());
    window.present();
    expectRenewalAloneAt(0);
    expectNewTokenAfter(0);
}

TEST_P(MainWindowAppears, AgainOnAnotherSectionWithTheRenewalAhead)
{
    window.present();
    answerAll();
    window.close();
    const qsizetype before = requestCount();
    router.open(GetParam());
    settle();
    EXPECT_EQ(requestCount(), before) << "a window that nobody sees asks for nothing";
    window.present();
    expectRenewalAloneAt(before);
    expectNewTokenAfter(before);
}

TEST_P(MainWindowAppears, AgainOnTheSameSectionAndLoadsIt)
{
    router.open(GetParam());
    window.present();
    answerAll();
    const QStringList first = linesFrom(0);
    EXPECT_FALSE(first.isEmpty());
    window.close();
    const qsizetype before = requestCount();
    window.present();
    expectRenewalAloneAt(before);
    answer(before, R"({"id_token": "fresh"})");
    answerAll();
    // The booking form fills itself in but once.
    EXPECT_EQ(linesFrom(before), GetParam() == AppSection::book ? QStringList() : first);
}

INSTANTIATE_TEST_SUITE_P(Sections, MainWindowAppears,
    testing::Values(AppSection::book, AppSection::sessions, AppSection::businessDashboard,
        AppSection::notaryDashboard, AppSection::adminDashboard, AppSection::adminRecords,
        AppSection::adminUsers, AppSection::adminNotaries, AppSection::settings),
    [](const auto& section) { return rawValue(section.param).toStdString(); });

TEST_F(MainWindowAppears, WhatIsBeingEditedIsNotTouched)
{
    router.open(AppSection::settings);
    window.present();
    answer(0, "{}");
    answer(1, R"({"full_name": "Maya", "city": "Albany"})");
    auto* city = named<QLineEdit>(window, u"City"_s);
    ASSERT_NE(city, nullptr);
    city->setFocus();
    QTest::keyClick(city, Qt::Key_End);
    QTest::keyClicks(city, u" Park"_s);
    window.close();
    window.present();
    answer(2, "{}");
    answer(3, R"({"full_name": "Maya Lind", "city": "Troy"})");
    EXPECT_EQ(city->text(), u"Albany Park"_s);
    EXPECT_EQ(named<QLineEdit>(window, u"Full Name"_s)->text(), u"Maya Lind"_s);
}

TEST_F(MainWindowAppears, ComingForwardFromBehindRenewsNothing)
{
    window.present();
    answerAll();
    const qsizetype before = requestCount();
    window.showMinimized();
    window.present();
    window.present();
    settle();
    EXPECT_EQ(requestCount(), before);
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(MainWindowAppears, ANoticeWithoutAScreenOfItsOwnIsShownAndDismissed)
{
    window.present();
    answerAll();
    notice = AlertMessage{.title = u"Sign In Failed"_s, .message = u"Incorrect email or password."_s};
    settle();
    auto* alert = window.findChild<AlertDialog*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_TRUE(alert->isVisible());
    EXPECT_EQ(alert->title(), u"Sign In Failed"_s);
    EXPECT_TRUE(texts(*alert).contains(u"Incorrect email or password."_s));
    QTest::keyClick(alert, Qt::Key_Escape);
    settle();
    EXPECT_FALSE(notice.value());
}

} // namespace
