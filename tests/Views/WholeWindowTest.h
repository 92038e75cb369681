#pragma once

#include "ScreensViewTest.h"
#include "Shell/MainWindow.h"
#include "support/SteadyAppearance.h"

/// A screen as somebody finds it, with what is selected in it.
struct Scene
{
    std::string name;
    std::optional<AppRole> role; ///< the active one of somebody who holds it; nobody is signed in without
    AppSection section;
    int row = -1; ///< the selected row of the screen's list; none when negative
};

/// Every screen of the program, filled, each once for everybody to whom it looks different.
const std::vector<Scene>& allScenes();
std::ostream& operator<<(std::ostream& out, const Scene& scene);

/// The whole window on one of the scenes.
class WholeWindowTest : public ScreensViewTest
{
protected:
    ~WholeWindowTest() override { window.reset(); }

    /// Opens the window, signs in whom the scene is about and waits until everything is there.
    void open(const Scene& scene, QSize size = {1180, 760});
    /// Answers what is asked, and what is asked after that, as a server with a few records would.
    void answerEverything();
    void selectRow(int row);

    SteadyAppearance desktop;
    AppearanceModel appearance{defaults, desktop};
    MainWindowModel model{context};
    std::unique_ptr<MainWindow> window;
};
