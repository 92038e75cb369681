#include "BrandStyle.h"
#include "Sessions/SessionsView.h"
#include "SignedIn.h"
#include "support/EventLoop.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPixmap>

using namespace Qt::StringLiterals;

namespace {

/// An answer as the bridge gives it for a busy office.
QByteArray answerWith(int count)
{
    static const QStringList statuses{
        u"requested"_s, u"scheduled"_s, u"confirmed"_s, u"completed"_s, u"cancelled"_s};
    QJsonArray sessions;
    for (int i = 0; i < count; ++i) {
        const QString name = u"Signer %1 Example"_s.arg(i);
        sessions.append(QJsonObject{
            {u"id"_s, i + 1},
            {u"reference_id"_s, u"RN-20260312-%1"_s.arg(i, 5, 10, QChar(u'0'))},
            {u"status"_s, statuses.at(i % statuses.size())},
            {u"scheduled_date"_s,
                u"2026-%1-%2"_s.arg(i % 12 + 1, 2, 10, QChar(u'0')).arg(i % 28 + 1, 2, 10, QChar(u'0'))},
            {u"scheduled_time"_s, u"%1:30 PM"_s.arg(i % 12 + 1)},
            {u"client_name"_s, name},
            {u"client_email"_s, u"signer%1@example.com"_s.arg(i)},
            {u"document_type"_s, u"Power of Attorney"_s},
            {u"signer_names"_s, QJsonArray{name, u"Second Signer"_s}},
            {u"updated_at"_s, u"2026-03-01 10:00:00"_s},
        });
    }
    return QJsonDocument(QJsonObject{{u"sessions"_s, sessions}}).toJson(QJsonDocument::Compact);
}

void parseAlone(benchmark::State& state)
{
    const QByteArray answer = answerWith(int(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(JSONValue::parse(answer));
}

/// From the answer's arrival until the list with its first rows is painted.
void showSessions(benchmark::State& state)
{
    const QByteArray answer = answerWith(int(state.range(0)));
    SignedIn signedIn;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto model = std::make_shared<SessionsModel>(signedIn.context);
        SessionsView view(model);
        view.resize(960, 728);
        view.show();
        settle();
        state.ResumeTiming();

        signedIn.session.answer(signedIn.session.count() - 1, 200, answer);
        while (model->isLoading.value())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const QPixmap painted = view.grab();
        if (painted.isNull() || model->sessions().size() != state.range(0))
            state.SkipWithError("the sessions were not shown");
    }
}

BENCHMARK(parseAlone)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(showSessions)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    BrandStyle::install();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
