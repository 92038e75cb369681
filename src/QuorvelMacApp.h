#pragma once

#include "Shell/AppearanceModel.h"
#include "Shell/MainWindowModel.h"

#include <memory>

class CurlWebSession;
class DesktopSystemOpen;
class MainWindow;
class MenuBarExtra;
class PortalAppearance;
class SettingsDefaults;

/// The application: makes what lasts as long as the process, declares the main window and the status-bar
/// menu, and keeps running when the window closes.
class QuorvelMacApp : public QObject
{
    Q_OBJECT

public:
    QuorvelMacApp();
    ~QuorvelMacApp() override;

    /// Shows the main window and the status-bar item.
    void start();

private:
    void openMainWindow();

    // From the ground up: what comes later uses what comes earlier.
    const AppConfig config_;
    std::unique_ptr<SettingsDefaults> defaults_;
    std::unique_ptr<PortalAppearance> systemAppearance_;
    std::unique_ptr<DesktopSystemOpen> systemOpen_;
    std::unique_ptr<CurlWebSession> session_;
    SignInEpoch epoch_;
    const Backend backend_;
    AuthManager auth_;
    LeaveGuard leaving_;
    const ScreenContext context_;
    AppearanceModel appearance_;
    MainWindowModel mainWindowModel_;
    std::unique_ptr<MainWindow> mainWindow_;
    std::unique_ptr<MenuBarExtra> menuBarExtra_;
    QPropertyNotifier onDark_;
};
