#include "Clipping.h"
#include "Screens/Cases.h"
#include "WholeWindowTest.h"

namespace {

/// The screens with everything in them, under the conditions of different people's desktops.
class ScenesLayout : public WholeWindowTest, public testing::WithParamInterface<Scene>
{
protected:
    ~ScenesLayout() override
    {
        window.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
        Type::followDesktop(13);
    }

    void expectReadableAtEverySize()
    {
        open(GetParam());
        for (const QSize size : {QSize(980, 680), QSize(1180, 760), QSize(1600, 1000)}) {
            SCOPED_TRACE(std::to_string(size.width()) + " wide");
            window->resize(size);
            settle();
            Clipping::expectNothingClipped(*window);
            Clipping::expectTextsApart(*window);
        }
    }
};

} // namespace

TEST_P(ScenesLayout, NothingIsClipped)
{
    expectReadableAtEverySize();
}

TEST_P(ScenesLayout, NothingIsClippedInTwiceTheTextSize)
{
    Type::followDesktop(26);
    expectReadableAtEverySize();
}

TEST_P(ScenesLayout, NothingIsClippedFromRightToLeft)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    expectReadableAtEverySize();
}

namespace {

/// Notes the windows that come up.
class WindowWatch : public QObject
{
public:
    WindowWatch() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* widget = qobject_cast<const QWidget*>(watched);
        if (event->type() == QEvent::Show && widget && widget->isWindow())
            shown.emplace_back(widget->metaObject()->className());
        return false;
    }

    std::vector<std::string> shown;
};

} // namespace

TEST_P(ScenesLayout, NoPartOfItIsEverAWindowOfItsOwn)
{
    const WindowWatch watch;
    open(GetParam());
    EXPECT_THAT(watch.shown, testing::ElementsAre("MainWindow"));
}

INSTANTIATE_TEST_SUITE_P(Screens, ScenesLayout, testing::ValuesIn(allScenes()), ByName());
