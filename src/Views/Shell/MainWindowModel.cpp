#include "Shell/MainWindowModel.h"

#include "Launch.h"

#include <utility>

using namespace Qt::StringLiterals;

MainWindowModel::MainWindowModel(const ScreenContext& context)
    : context_(context), shownSection_(context_.router.selectedSection.value()), lastGate_(gate()),
      wasSignedIn_(context_.auth.isSignedIn())
{
    connect(&context_.auth, &AuthManager::personLeft, this, &MainWindowModel::personLeft);
    onUser_ = context_.auth.user.addNotifier([this] { userChanged(); });
    onRole_ = context_.auth.activeRole.addNotifier([this] { emit sidebarChanged(); });
    onSection_ = context_.router.selectedSection.addNotifier([this] { sectionChanged(); });
}

/// Whether the screen shows something else to each role of one person; the others stay as they are.
static bool dependsOnActiveRole(AppSection section)
{
    return section == AppSection::sessions;
}

/// The router runs ahead of the window while the person is asked whether the screen may be left.
void MainWindowModel::sectionChanged()
{
    if (context_.router.selectedSection.value() == shownSection_) {
        context_.leaving.answer(false);
        return;
    }
    const auto stay = [this] { context_.router.selectedSection = shownSection_; };
    context_.leaving.leave([this] { showSection(); }, stay);
    // The entry that was clicked takes itself for the selected one.
    if (context_.leaving.question.value())
        emit sidebarChanged();
}

void MainWindowModel::showSection()
{
    shownSection_ = context_.router.selectedSection.value();
    lastGate_ = gate();
    context_.leaving.forget();
    emit sidebarChanged();
    emit screenChanged();
}

void MainWindowModel::userChanged()
{
    const bool isSignedIn = context_.auth.isSignedIn();
    const bool cameOrWent = std::exchange(wasSignedIn_, isSignedIn) != isSignedIn;
    if (cameOrWent && context_.auth.interrupted())
        keepUnfinished();
    emit sidebarChanged();
    // The settings are open to all, but nobody is to find those of another person there. A screen that goes
    // is not asked about any more, so the window catches up with the router.
    if (gate() != lastGate_ || (cameOrWent && shownSection_ == AppSection::settings))
        showSection();
}

void MainWindowModel::keepUnfinished()
{
    const std::shared_ptr<ScreenModel> front = front_.lock();
    if (!front || context_.leaving.unfinished() == LeaveGuard::Unfinished::nothing)
        return;
    unfinished_ = {shownSection_, front};
    if (dependsOnActiveRole(shownSection_))
        context_.auth.resumeRole();
}

std::shared_ptr<ScreenModel> MainWindowModel::takeUnfinished()
{
    if (!context_.auth.isSignedIn() || unfinished_.section != shownSection_)
        return nullptr;
    return std::exchange(unfinished_.model, nullptr);
}

void MainWindowModel::personLeft()
{
    booking_.reset();
    unfinished_.model.reset();
}

MainWindowModel::Header MainWindowModel::header() const
{
    if (!context_.auth.isSignedIn())
        return {u"Quorvel"_s, u"Desktop"_s, u"checkmark.seal.fill"_s};
    const AppRole role = context_.auth.role();
    return {context_.auth.displayName(), title(role), systemImage(role)};
}

QList<AppRole> MainWindowModel::switchableRoles() const
{
    const QList<AppRole> roles = context_.auth.availableRoles();
    return roles.size() > 1 ? roles : QList<AppRole>();
}

QList<MainWindowModel::Group> MainWindowModel::groups() const
{
    QList<Group> groups;
    groups += {u"Main"_s, {AppSection::dashboard, AppSection::book, AppSection::sessions}};
    const QList<AppSection> workspaces = roleSections(context_.auth.availableRoles());
    if (!workspaces.isEmpty())
        groups += {u"Workspaces"_s, workspaces};
    groups += {u"Account"_s, {AppSection::settings}};
    return groups;
}

QString MainWindowModel::windowTitle() const
{
    return title(selectedSection());
}

/// The sections that show themselves to people who are not signed in.
static bool isOpenToAll(AppSection section)
{
    return section == AppSection::dashboard || section == AppSection::settings;
}

MainWindowModel::Gate MainWindowModel::gate() const
{
    if (isOpenToAll(selectedSection()))
        return Gate::open;
    if (!context_.auth.isSignedIn())
        return Gate::signIn;
    const std::optional<AppRole> role = requiredRole(selectedSection());
    return !role || context_.auth.availableRoles().contains(*role) ? Gate::open : Gate::restricted;
}

MainWindowModel::Header MainWindowModel::signInHeader() const
{
    const std::optional<AppRole> role = requiredRole(selectedSection());
    if (role)
        return {title(*role), {}, systemImage(*role)};
    return {title(selectedSection()), {}, systemImage(selectedSection())};
}

QString MainWindowModel::restrictionMessage() const
{
    const AppRole role = requiredRole(selectedSection()).value_or(AppRole::client);
    return u"This section is available to "_s + title(role) + u" accounts only."_s;
}

void MainWindowModel::select(AppSection section)
{
    context_.router.selectedSection = section;
}

void MainWindowModel::switchRole(AppRole role)
{
    if (role == context_.auth.role())
        return;
    const auto switchNow = [this, role] { context_.auth.switchRole(role); };
    if (dependsOnActiveRole(selectedSection()))
        context_.leaving.leave(switchNow, [this] { emit sidebarChanged(); });
    else
        switchNow();
}

void MainWindowModel::appears()
{
    launch(context_.auth.refreshTokenIfNeeded());
}

std::shared_ptr<BookRemoteNotaryModel> MainWindowModel::booking()
{
    if (!booking_)
        booking_ = std::make_shared<BookRemoteNotaryModel>(context_);
    return booking_;
}
