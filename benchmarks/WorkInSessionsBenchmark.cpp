#include "Answers.h"
#include "Components/TextField.h"
#include "MainThread.h"
#include "Sessions/SessionDetailPage.h"
#include "Sessions/SessionMessageThread.h"
#include "Sessions/SessionsView.h"
#include "SignedIn.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int sessionCount = 10'000;
constexpr int messageCount = 1'000;

/// The sessions of an office before somebody who has all controls, one of them selected with a long thread.
struct ShownSessions
{
    ShownSessions()
    {
        AuthUser user = *signedIn.auth.user.value();
        user.isAdmin = true;
        user.isNotary = true;
        signedIn.auth.user = user;
        signedIn.auth.activeRole = AppRole::admin;
        view = std::make_unique<SessionsView>(model);
        view->resize(960, 728);
        view->show();
        answerAll();
        model->select(sessionCount / 2);
        answerAll();
    }

    /// Answers every request and those that follow from it, until everything is on screen.
    void answerAll()
    {
        settle();
        for (auto pending = session.pending(); !pending.isEmpty(); pending = session.pending()) {
            for (const qsizetype number : pending)
                session.answer(number, 200, answerTo(session.request(number).url.path()));
            settle();
        }
    }

    QByteArray answerTo(const QString& path) const
    {
        const QByteArray id = path.section(u'/', -1).toLatin1();
        if (path.endsWith(u"/messages"_s))
            return messages;
        if (path.endsWith(u"/documents"_s) || path.endsWith(u"/notaries"_s))
            return "[]";
        if (path.endsWith(u"/sessions"_s))
            return sessions;
        return R"({"session": {"reference_id": "RN-20260309-0131", "status": "scheduled",
            "scheduled_date": "2026-03-12", "scheduled_time": "2:30 PM", "client_name": "Priya Raman",
            "document_type": "Power of Attorney", "signer_names": ["Priya Raman"], "id": )"
            + id + "}}";
    }

    RowListView* list() const { return view->findChild<RowListView*>(); }
    /// Scrolls something of the detail into view.
    void reveal(QWidget* widget)
    {
        page()->ensureWidgetVisible(widget);
        settle();
    }

    SessionDetailPage* page() const { return view->findChild<SessionDetailPage*>(); }

    const QByteArray sessions = Answers::sessions(sessionCount);
    const QByteArray messages = Answers::messages(messageCount);
    SignedIn signedIn;
    FakeWebSession& session = signedIn.session;
    std::shared_ptr<SessionsModel> model = std::make_shared<SessionsModel>(signedIn.context);
    std::unique_ptr<SessionsView> view;
};

/// Another session with the arrow key, until its own long thread is on screen.
void selectRow(benchmark::State& state)
{
    ShownSessions shown;
    shown.list()->setFocus();
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        thread.measure([&] { QTest::keyClick(shown.list(), Qt::Key_Down); }, [&] { shown.answerAll(); });
        if (!shown.page() || shown.model->detail()->messages()->messages().size() != messageCount)
            state.SkipWithError("the session was not shown");
    }
}

/// A letter in the controls, which the search for unsaved changes follows.
void typeInControl(benchmark::State& state)
{
    ShownSessions shown;
    QLineEdit* input = shown.page()->findChild<TextField*>()->lineEdit();
    shown.reveal(input);
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        thread.measure([&] { QTest::keyClick(input, Qt::Key_A); });
        if (input->text().size() > 40)
            input->clear();
    }
}

void typeMessage(benchmark::State& state)
{
    ShownSessions shown;
    auto* editor = shown.page()->findChild<QPlainTextEdit*>();
    shown.reveal(editor);
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        thread.measure([&] { QTest::keyClick(editor, Qt::Key_A); });
        if (editor->toPlainText().size() > 300)
            editor->clear();
    }
}

/// A page of something that scrolls, to its end and back.
void scrollByPages(benchmark::State& state, QScrollBar* bar)
{
    auto page = QAbstractSlider::SliderPageStepAdd;
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        if (bar->value() == bar->maximum())
            page = QAbstractSlider::SliderPageStepSub;
        else if (bar->value() == bar->minimum())
            page = QAbstractSlider::SliderPageStepAdd;
        thread.measure([&] { bar->triggerAction(page); });
    }
}

void scrollList(benchmark::State& state)
{
    ShownSessions shown;
    scrollByPages(state, shown.list()->verticalScrollBar());
}

void scrollDetail(benchmark::State& state)
{
    ShownSessions shown;
    scrollByPages(state, shown.page()->verticalScrollBar());
}

void scrollThread(benchmark::State& state)
{
    ShownSessions shown;
    auto* messages = shown.page()->findChild<SessionMessageThread*>();
    shown.reveal(messages);
    scrollByPages(state, messages->verticalScrollBar());
}

BENCHMARK(selectRow)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(typeInControl)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(typeMessage)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(scrollList)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(scrollDetail)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(scrollThread)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
