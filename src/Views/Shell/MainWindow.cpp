#include "Shell/MainWindow.h"

#include "Accessibility.h"
#include "Account/LoginView.h"
#include "Account/SettingsContentView.h"
#include "Admin/AdminNotariesView.h"
#include "Admin/AdminRecordsView.h"
#include "Admin/AdminUsersView.h"
#include "AlertPresenter.h"
#include "AppIcon.h"
#include "Booking/BookRemoteNotaryView.h"
#include "Components/EmptyStateView.h"
#include "Dashboards/AdminDashboardView.h"
#include "Dashboards/BusinessDashboardView.h"
#include "Dashboards/NotaryDashboardView.h"
#include "PaneKeys.h"
#include "QuestionPresenter.h"
#include "Sessions/SessionsView.h"
#include "Shell/ContentPane.h"
#include "Shell/DashboardHomeView.h"
#include "Shell/Sidebar.h"

#include <QHBoxLayout>
#include <QMenuBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Of the content: the menu bar comes on top of it, where the desktop shows it in the window.
constexpr QSize leastSize(980, 680);
constexpr QSize firstSize(1180, 760);
constexpr int sidebarWidth = 220;
constexpr int wideSidebarWidth = 240;
constexpr int wideFrom = 1440;
constexpr double sidebarShare = 0.36;
/// Of the window, in pixels of the design: the screens need the room more than the words of the sidebar do.
constexpr int foldedBelow = 680;

} // namespace

MainWindow::MainWindow(MainWindowModel& model, AppearanceModel& appearance)
    : model_(model), appearance_(appearance), sidebar_(new Sidebar(model)), content_(new ContentPane)
{
    setWindowIcon(AppIcon::window());
    addApplicationMenu();

    auto* columns = new QWidget;
    auto* layout = new QHBoxLayout(columns);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(sidebar_);
    layout->addWidget(content_, 1);
    columns->setMinimumSize(leastSize);
    setCentralWidget(columns);
    const int bar = menuBar()->isNativeMenuBar() ? 0 : menuBar()->sizeHint().height();
    resize(firstSize + QSize(0, bar));
    PaneKeys::mark(sidebar_);
    PaneKeys::mark(content_);
    PaneKeys::install(this);

    connect(&model_, &MainWindowModel::sidebarChanged, this, &MainWindow::fitSidebar);
    connect(&model_, &MainWindowModel::screenChanged, this, &MainWindow::showScreen);
    LeaveGuard& leaving = model_.context().leaving;
    presentQuestions(this, leaving.question, [&leaving](bool leaves) { leaving.answer(leaves); });
    QProperty<std::optional<AlertMessage>>& notice = model_.context().notice;
    presentAlerts(this, notice, [&notice] { notice = std::nullopt; });
    showScreen();
    sidebar_->focusSelected();
}

void MainWindow::addApplicationMenu()
{
    QMenu* menu = menuBar()->addMenu(u"&Quorvel"_s);
    const auto add = [this, menu](const QString& title, const QKeySequence& shortcut, AppSection section) {
        QAction* action = menu->addAction(title);
        action->setShortcut(shortcut);
        connect(
            action, &QAction::triggered, this, [this, section] { model_.context().router.open(section); });
    };
    add(u"&Book Remote Notary"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_B, AppSection::book);
    add(u"&Sessions"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_S, AppSection::sessions);
    menu->addSeparator();
    add(u"S&ettings"_s, Qt::CTRL | Qt::Key_Comma, AppSection::settings);
}

void MainWindow::present()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void MainWindow::setVisible(bool visible)
{
    if (visible && !isVisible())
        model_.appears();
    QMainWindow::setVisible(visible);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    fitSidebar();
}

/// Large text makes the sidebar wider than the design, up to a share of the window, or folds it.
void MainWindow::fitSidebar()
{
    const int designed = width() < wideFrom ? sidebarWidth : wideSidebarWidth;
    const int most = std::max(designed, int(width() * sidebarShare));
    const bool folds = width() < Type::scaled(foldedBelow);
    sidebar_->setFolded(folds);
    sidebar_->setFixedWidth(
        folds ? sidebar_->wholeWidth() : std::clamp(sidebar_->wholeWidth(), designed, most));
}

void MainWindow::showScreen()
{
    setWindowTitle(model_.windowTitle());
    QWidget* screen = makeScreen();
    // By its name a screen reader tells whoever is led into it, by a shortcut or a sign-in, where they are;
    // in this role without reading out all of its texts. A section and the sign-in before it differ in their
    // names, because what is called the same is taken for where the person is already.
    Accessibility::setRole(screen, QAccessible::LayeredPane);
    const bool asksForSignIn = model_.gate() == MainWindowModel::Gate::signIn;
    screen->setAccessibleName(asksForSignIn ? model_.windowTitle() + u", Sign In"_s : model_.windowTitle());
    content_->setScreen(screen);
}

QWidget* MainWindow::makeScreen()
{
    switch (model_.gate()) {
    case MainWindowModel::Gate::open:
        return makeSectionScreen();
    case MainWindowModel::Gate::signIn: {
        const MainWindowModel::Header asking = model_.signInHeader();
        return new LoginView(
            std::make_shared<LoginModel>(model_.context(), asking.title, asking.systemImage));
    }
    case MainWindowModel::Gate::restricted:
        return new EmptyStateView(
            u"lock.fill"_s, u"Access Restricted"_s, model_.restrictionMessage(), EmptyStateView::Look::card);
    }
    Q_UNREACHABLE();
}

/// A view over the model that its person left unfinished, or over a new one.
template <typename View, typename Model, typename... More>
static QWidget* screenOver(MainWindowModel& window, More&... more)
{
    return new View(window.screen<Model>(more...));
}

QWidget* MainWindow::makeSectionScreen()
{
    switch (model_.selectedSection()) {
    case AppSection::dashboard:
        return new DashboardHomeView(DashboardHomeModel(model_.context()));
    case AppSection::book:
        return new BookRemoteNotaryView(model_.booking());
    case AppSection::sessions:
        return screenOver<SessionsView, SessionsModel>(model_);
    case AppSection::settings:
        return screenOver<SettingsContentView, SettingsContentModel>(model_, appearance_);
    case AppSection::businessDashboard:
        return screenOver<BusinessDashboardView, BusinessDashboardModel>(model_);
    case AppSection::notaryDashboard:
        return screenOver<NotaryDashboardView, NotaryDashboardModel>(model_);
    case AppSection::adminDashboard:
        return screenOver<AdminDashboardView, AdminDashboardModel>(model_);
    case AppSection::adminRecords:
        return screenOver<AdminRecordsView, AdminRecordsModel>(model_);
    case AppSection::adminUsers:
        return screenOver<AdminUsersView, AdminUsersModel>(model_);
    case AppSection::adminNotaries:
        return screenOver<AdminNotariesView, AdminNotariesModel>(model_);
    }
    Q_UNREACHABLE();
}
