#pragma once

#include "Shell/AppearanceModel.h"
#include "Shell/MainWindowModel.h"

#include <QMainWindow>

class ContentPane;
class Sidebar;

/// The one window: the application menu, the sidebar, and the screen of the selected section behind its gate.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Both models must outlive the window.
    MainWindow(MainWindowModel& model, AppearanceModel& appearance);

    /// Shows the window, or brings it forward.
    void present();
    /// The model hears of the window's coming before any screen in it is shown and makes requests.
    void setVisible(bool visible) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void addApplicationMenu();
    void fitSidebar();
    void showScreen();
    QWidget* makeScreen();
    QWidget* makeSectionScreen();

    MainWindowModel& model_;
    AppearanceModel& appearance_;
    Sidebar* sidebar_;
    ContentPane* content_;
};
