#include "Clipping.h"
#include "Components/SearchField.h"
#include "ScreensViewTest.h"
#include "Shell/MainWindow.h"
#include "support/SteadyAppearance.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;

namespace {

const QByteArray session = R"({"id":%1,"scheduled_date":"2025-06-%1","status":"requested",
    "signer_names":["Oscar Lindqvist","Noor Haddad","Ines Duarte"],"document_type":"Settlement / Litigation Document",
    "client_email":"oscar.lindqvist@example.com","session_code":"RN-20250601-00%1"})";

/// A window, the desktop's text size in pixels, and the direction in which people read.
using Conditions = std::tuple<QSize, int, Qt::LayoutDirection>;

std::string nameOfConditions(const testing::TestParamInfo<Conditions>& conditions)
{
    const auto& [size, text, direction] = conditions.param;
    return std::to_string(size.width()) + (text > 13 ? "LargeText" : "")
        + (direction == Qt::RightToLeft ? "RightToLeft" : "");
}

/// Every screen in the whole window, under the conditions of different people's desktops.
class ScreensLayout : public ScreensViewTest, public testing::WithParamInterface<Conditions>
{
protected:
    ScreensLayout()
    {
        const auto [size, text, direction] = GetParam();
        Type::followDesktop(text);
        QApplication::setLayoutDirection(direction);
        window = std::make_unique<MainWindow>(model, appearance);
        window->resize(size);
        show(*window);
    }
    ~ScreensLayout() override
    {
        window.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
        Type::followDesktop(13);
    }

    void open(AppSection section)
    {
        router.open(section);
        settle();
    }

    void expectReadable(const std::string& screen) { expectReadable(screen, *window); }
    static void expectReadable(const std::string& screen, const QWidget& part)
    {
        SCOPED_TRACE(screen);
        Clipping::expectNothingClipped(part);
        Clipping::expectTextsApart(part);
    }
    /// The list's half of a screen, with its header.
    const QWidget& listPane() const
    {
        return *window->findChild<SearchField*>()->parentWidget()->parentWidget();
    }

    static QByteArray sessions(int count)
    {
        QByteArrayList all;
        for (int number = 1; number <= count; ++number)
            all += QString::fromUtf8(session).arg(number + 10).toUtf8();
        return "[" + all.join(',') + "]";
    }

    SteadyAppearance desktop;
    AppearanceModel appearance{defaults, desktop};
    MainWindowModel model{context};
    std::unique_ptr<MainWindow> window;
};

} // namespace

TEST_P(ScreensLayout, NothingIsClippedForSomebodySignedOut)
{
    expectReadable("dashboard");
    open(AppSection::settings);
    expectReadable("settings");
    open(AppSection::book);
    expectReadable("sign-in");
    click(named<QAbstractButton>(*window, u"Create Account"_s));
    expectReadable("new account");
}

TEST_P(ScreensLayout, NothingIsClippedForSomebodyWithEveryRole)
{
    signIn(account(u"Maximiliane Whitfield-Oyelaran"_s, {AppRole::notary, AppRole::admin}), AppRole::admin);
    open(AppSection::dashboard);
    expectReadable("dashboard");
    open(AppSection::settings);
    expectReadable("settings on their way");
    answer(requestCount() - 1, R"({"full_name":"Maximiliane Whitfield-Oyelaran","phone":"(555) 010-0142"})");
    expectReadable("settings");
    open(AppSection::book);
    answer(requestCount() - 1, "{}");
    expectReadable("booking");
}

TEST_P(ScreensLayout, NothingIsClippedInTheListOfSessions)
{
    signIn(account(u"Priya Raman"_s));
    open(AppSection::sessions);
    expectReadable("loading");
    answer(requestCount() - 1, sessions(12));
    EXPECT_TRUE(line(requestCount() - 1).startsWith(u"GET /remote-notary/sessions/"_s));
    expectReadable("sessions", listPane());
    window->findChild<SearchField*>()->setText(u"nobody of that name"_s);
    settle();
    expectReadable("no sessions", listPane());
    open(AppSection::adminUsers);
    expectReadable("refused");
}

INSTANTIATE_TEST_SUITE_P(Desktops, ScreensLayout,
    testing::Combine(testing::Values(QSize(980, 680), QSize(1180, 760), QSize(1600, 1000), QSize(1920, 1080)),
        testing::Values(13, 26), testing::Values(Qt::LeftToRight, Qt::RightToLeft)),
    nameOfConditions);
