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

protected:
    void showEvent(QShowEvent* event) override;
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
