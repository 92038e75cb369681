#include "QuorvelMacApp.h"

#include "AutostartLoginItem.h"
#include "BrandStyle.h"
#include "CurlWebSession.h"
#include "DesktopSystemOpen.h"
#include "PortalAppearance.h"
#include "SettingsDefaults.h"
#include "Shell/MainWindow.h"
#include "Shell/MenuBarExtra.h"
#include "TrayWatch.h"

#include <QApplication>
#include <QTimer>

/// How long a start in the background waits for the desktop's tray, in milliseconds. At the start of a
/// session that may come a little later than the programs that start with it.
static constexpr int trayPatience = 5000;

QuorvelMacApp::QuorvelMacApp(StartOptions options, QVariantMap platformData)
    : options_(std::move(options)), platformData_(std::move(platformData)),
      instance_(AppConfig::applicationId), config_(AppConfig::builtIn()),
      defaults_(std::make_unique<SettingsDefaults>()),
      systemAppearance_(std::make_unique<PortalAppearance>()),
      systemOpen_(std::make_unique<DesktopSystemOpen>()),
      loginItem_(std::make_unique<AutostartLoginItem>(AppConfig::applicationId)),
      session_(std::make_unique<CurlWebSession>()),
      tokens_(epoch_), backend_{*session_, NotificationCenter::shared(), epoch_, config_, tokens_},
      auth_(backend_, *defaults_, clock_),
      launchAtLogin_(*defaults_, *loginItem_), context_{auth_, AppRouter::shared(), *systemOpen_, backend_,
                                                   leaving_, launchAtLogin_, notice_},
      appearance_(*defaults_, *systemAppearance_), mainWindowModel_(context_)
{
    QApplication::setQuitOnLastWindowClosed(false);
    BrandStyle* style = BrandStyle::install(appearance_.isDark.value());
    onDark_ = appearance_.isDark.addNotifier([this, style] { style->setDark(appearance_.isDark.value()); });
    onContrast_ = appearance_.hasHighContrast.addNotifier(
        [this, style] { style->setHighContrast(appearance_.hasHighContrast.value()); });
}

QuorvelMacApp::~QuorvelMacApp()
{
    // Whoever still awaits an answer resumes now, with a failure, and ends before what it uses is destroyed.
    session_->cancelAll();
    QCoreApplication::processEvents();
}

void QuorvelMacApp::start()
{
    connect(&instance_, &SingleInstance::won, this, &QuorvelMacApp::begin);
    connect(&instance_, &SingleInstance::handedOver, this, &QCoreApplication::quit);
    connect(&instance_, &SingleInstance::activated, this, &QuorvelMacApp::openMainWindow);
    connect(&instance_, &SingleInstance::actionActivated, this, &QuorvelMacApp::openAction);
    instance_.claim({options_.comesForward, options_.action, platformData_});
}

void QuorvelMacApp::begin()
{
    if (const std::optional<AppSection> section = StartOptions::sectionOf(options_.action))
        context_.router.open(*section);
    if (options_.comesForward)
        openMainWindow();
    else
        QTimer::singleShot(trayPatience, this, &QuorvelMacApp::showSomething);
    // Asks the display's server and waits for it, which the window need not do.
    tray_ = std::make_unique<TrayWatch>();
    connect(tray_.get(), &TrayWatch::found, this, &QuorvelMacApp::showStatusItem);
}

/// Without a status menu nothing but the window shows that the program runs.
void QuorvelMacApp::showSomething()
{
    if (!menuBarExtra_ && !mainWindow_)
        openMainWindow();
}

void QuorvelMacApp::showStatusItem()
{
    MenuBarDropdownModel::Shell shell{[this] { openMainWindow(); }, &QCoreApplication::quit};
    menuBarExtra_
        = std::make_unique<MenuBarExtra>(context_, MenuBarDropdownModel(context_, std::move(shell)));
}

void QuorvelMacApp::openAction(const QString& action)
{
    if (const std::optional<AppSection> section = StartOptions::sectionOf(action))
        context_.router.open(*section);
    openMainWindow();
}

void QuorvelMacApp::openMainWindow()
{
    if (!mainWindow_)
        mainWindow_ = std::make_unique<MainWindow>(mainWindowModel_, appearance_);
    mainWindow_->present();
}
