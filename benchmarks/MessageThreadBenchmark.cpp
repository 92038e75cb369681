#include "Answers.h"
#include "MainThread.h"
#include "Page.h"
#include "RequestPipeline.h"
#include "Sessions/SessionMessageThread.h"
#include "Sessions/SessionMessagesCard.h"
#include "Sessions/SessionMessagesModel.h"
#include "SignedIn.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QList<SessionMessage> threadOf(int count)
{
    QList<SessionMessage> thread;
    for (const JSONObject& raw : normalizeArray(*JSONValue::parse(Answers::messages(count))))
        thread += SessionMessage::fromRaw(raw);
    return thread;
}

/// The card of a thread on a page that is shown.
struct ShownThread
{
    explicit ShownThread(const QList<SessionMessage>& thread)
    {
        page.column()->addWidget(new SessionMessagesCard(model));
        page.resize(560, 728);
        page.show();
        settle();
        model->setMessages(thread);
        paint();
    }
    /// What one turn of the event loop does after an input: layouts, then a frame.
    void paint()
    {
        settle();
        const QPixmap painted = page.grab();
        benchmark::DoNotOptimize(painted);
    }
    QScrollBar* bar() const { return page.findChild<SessionMessageThread*>()->verticalScrollBar(); }

    SignedIn signedIn;
    std::shared_ptr<SessionMessagesModel> model = std::make_shared<SessionMessagesModel>(signedIn.context, 7);
    Page page{760, Page::Place::detail};
};

/// From a loaded thread to its newest messages on screen.
void showThread(benchmark::State& state)
{
    const QList<SessionMessage> thread = threadOf(int(state.range(0)));
    ShownThread shown({});
    for ([[maybe_unused]] auto _ : state) {
        shown.model->setMessages(thread);
        shown.paint();
        state.PauseTiming();
        if (shown.bar()->value() != shown.bar()->maximum())
            state.SkipWithError("the newest message is not in view");
        shown.model->setMessages({});
        shown.paint();
        state.ResumeTiming();
    }
}

/// A message arrives in a thread that is shown.
void appendMessage(benchmark::State& state)
{
    QList<SessionMessage> thread = threadOf(int(state.range(0)));
    ShownThread shown(thread);
    for ([[maybe_unused]] auto _ : state) {
        thread += {qint64(thread.size()) + 1, {}, u"Sender"_s, {}, u"Another one"_s, {}};
        shown.model->setMessages(thread);
        shown.paint();
    }
}

/// A page up or down, through the whole thread and back.
void scrollByPages(benchmark::State& state)
{
    ShownThread shown(threadOf(int(state.range(0))));
    auto step = QAbstractSlider::SliderPageStepSub;
    for ([[maybe_unused]] auto _ : state) {
        if (shown.bar()->value() == shown.bar()->minimum())
            step = QAbstractSlider::SliderPageStepAdd;
        else if (shown.bar()->value() == shown.bar()->maximum())
            step = QAbstractSlider::SliderPageStepSub;
        shown.bar()->triggerAction(step);
        shown.paint();
    }
}

/// A leap to somewhere else in the thread.
void leap(benchmark::State& state)
{
    ShownThread shown(threadOf(int(state.range(0))));
    int percent = 0;
    for ([[maybe_unused]] auto _ : state) {
        percent = (percent + 37) % 100;
        shown.bar()->setValue(shown.bar()->maximum() / 100 * percent);
        shown.paint();
    }
}

void resizePage(benchmark::State& state)
{
    ShownThread shown(threadOf(int(state.range(0))));
    int width = 560;
    for ([[maybe_unused]] auto _ : state) {
        width = width > 700 ? 400 : width + 7;
        shown.page.resize(width, 728);
        shown.paint();
    }
}

/// A letter of a new message.
void typeLetter(benchmark::State& state)
{
    ShownThread shown(threadOf(int(state.range(0))));
    auto* editor = shown.page.findChild<QPlainTextEdit*>();
    for ([[maybe_unused]] auto _ : state) {
        QTest::keyClick(editor, Qt::Key_A);
        shown.paint();
        if (editor->toPlainText().size() > 300)
            editor->clear();
    }
}

BENCHMARK(showThread)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(appendMessage)->Arg(1'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(scrollByPages)->Arg(1'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(leap)->Arg(1'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(resizePage)->Arg(1'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(typeLetter)->Arg(1'000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
