#include "QuorvelMacApp.h"

#include "BrandStyle.h"
#include "CurlWebSession.h"
#include "DesktopSystemOpen.h"
#include "PortalAppearance.h"
#include "SettingsDefaults.h"
#include "Shell/MainWindow.h"
#include "Shell/MenuBarExtra.h"

#include <QApplication>

QuorvelMacApp::QuorvelMacApp()
    : config_(AppConfig::builtIn()), defaults_(std::make_unique<SettingsDefaults>()),
      systemAppearance_(std::make_unique<PortalAppearance>()),
      systemOpen_(std::make_unique<DesktopSystemOpen>()),
      session_(std::make_unique<CurlWebSession>()), backend_{*session_, NotificationCenter::shared(), epoch_,
                                                        config_},
      auth_(backend_, *defaults_), context_{auth_, AppRouter::shared(), *systemOpen_, backend_, leaving_},
      appearance_(*defaults_, *systemAppearance_), mainWindowModel_(context_)
{
    QApplication::setQuitOnLastWindowClosed(false);
    BrandStyle* style = BrandStyle::install(appearance_.isDark.value());
    onDark_ = appearance_.isDark.addNotifier([this, style] { style->setDark(appearance_.isDark.value()); });
}

QuorvelMacApp::~QuorvelMacApp()
{
    // Whoever still awaits an answer resumes now, with a failure, and ends before what it uses is destroyed.
    session_->cancelAll();
    QCoreApplication::processEvents();
}

void QuorvelMacApp::start()
{
    openMainWindow();
    MenuBarDropdownModel::Shell shell{[this] { openMainWindow(); }, &QCoreApplication::quit};
    menuBarExtra_
        = std::make_unique<MenuBarExtra>(context_, MenuBarDropdownModel(context_, std::move(shell)));
}

void QuorvelMacApp::openMainWindow()
{
    if (!mainWindow_)
        mainWindow_ = std::make_unique<MainWindow>(mainWindowModel_, appearance_);
    mainWindow_->present();
}
