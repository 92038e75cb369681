#pragma once

#include "Shell/AppearanceModel.h"
#include "Shell/MainWindowModel.h"
#include "SingleInstance.h"
#include "StartOptions.h"

#include <memory>

class AutostartLoginItem;
class CurlWebSession;
class DesktopSystemOpen;
class MainWindow;
class MenuBarExtra;
class PortalAppearance;
class SettingsDefaults;
class TrayWatch;

/// The application: makes what lasts as long as the process, declares the main window and the status-bar
/// menu, and keeps running when the window closes. A second start brings the first one's window forward.
class QuorvelMacApp : public QObject
{
    Q_OBJECT

public:
    /// \param platformData  with what the desktop lets a window come to the front; from before Qt began
    explicit QuorvelMacApp(StartOptions options = {}, QVariantMap platformData = {});
    ~QuorvelMacApp() override;

    /// Shows the main window and the status-bar item, or ends the program when it is running already.
    void start();

private:
    void begin();
    void openAction(const QString& action);
    void openMainWindow();
    void showSomething();
    void showStatusItem();

    // From the ground up: what comes later uses what comes earlier.
    const StartOptions options_;
    const QVariantMap platformData_;
    SingleInstance instance_;
    const AppConfig config_;
    std::unique_ptr<SettingsDefaults> defaults_;
    std::unique_ptr<PortalAppearance> systemAppearance_;
    std::unique_ptr<DesktopSystemOpen> systemOpen_;
    std::unique_ptr<AutostartLoginItem> loginItem_;
    std::unique_ptr<CurlWebSession> session_;
    SignInEpoch epoch_;
    TokenGate tokens_;
    BootClock clock_;
    const Backend backend_;
    AuthManager auth_;
    LeaveGuard leaving_;
    LaunchAtLogin launchAtLogin_;
    QProperty<std::optional<AlertMessage>> notice_;
    const ScreenContext context_;
    AppearanceModel appearance_;
    MainWindowModel mainWindowModel_;
    std::unique_ptr<MainWindow> mainWindow_;
    std::unique_ptr<TrayWatch> tray_;
    std::unique_ptr<MenuBarExtra> menuBarExtra_; ///< null while the desktop has no tray
    QPropertyNotifier onDark_;
    QPropertyNotifier onContrast_;
};
