#include "Admin/AdminUsersView.h"
#include "Answers.h"
#include "Components/SearchField.h"
#include "MainThread.h"
#include "Screen/AdminRows.h"
#include "SignedIn.h"

#include <QTest>

#include <string_view>

using namespace Qt::StringLiterals;

namespace {

constexpr int userCount = 100'000;

/// What is typed: a word of every account, one of every fortieth, and one of none.
QString wordOf(const benchmark::State& state)
{
    return QStringList{u"example"_s, u"kowalski"_s, u"zebra"_s}.at(int(state.range(0)));
}

/// A word letter by letter, and letter by letter taken back.
class Typing
{
public:
    explicit Typing(QString word) : word_(std::move(word)) { }

    /// What the search field holds after the next key.
    QString next()
    {
        if (length_ == word_.size())
            grows_ = false;
        else if (length_ == 0)
            grows_ = true;
        length_ += grows_ ? 1 : -1;
        return word_.first(length_);
    }
    bool grows() const { return grows_; }

private:
    QString word_;
    qsizetype length_ = 0;
    bool grows_ = true;
};

struct LoadedUsers
{
    LoadedUsers()
    {
        model->refresh();
        load();
    }
    void load()
    {
        static const QByteArray users = Answers::users(userCount);
        signedIn.session.answer(signedIn.session.count() - 1, 200, users);
        settle();
    }

    SignedIn signedIn;
    std::shared_ptr<AdminUsersModel> model = std::make_shared<AdminUsersModel>(signedIn.context);
};

/// The least that a search can be: every row's text, of the same bytes, is looked through for the word.
void scanTexts(benchmark::State& state)
{
    LoadedUsers users;
    QByteArrayList texts;
    for (const AdminUserRecord& record : users.model->records())
        texts += AdminRows::user(record).search.toLower().toUtf8();
    const std::string joined = texts.join('\n').toStdString();
    Typing typing(wordOf(state));
    for ([[maybe_unused]] auto _ : state) {
        const std::string wanted = typing.next().toStdString();
        QList<int> rows;
        std::string_view left = joined;
        for (int row = 0; !left.empty(); ++row) {
            const std::string_view text = left.substr(0, left.find('\n'));
            if (text.find(wanted) != std::string_view::npos)
                rows += row;
            left.remove_prefix(std::min(text.size() + 1, left.size()));
        }
        benchmark::DoNotOptimize(rows);
    }
    state.SetLabel(wordOf(state).toStdString());
}

/// A key in the search field as far as the rows to be shown.
void filterRows(benchmark::State& state)
{
    LoadedUsers users;
    Typing typing(wordOf(state));
    for ([[maybe_unused]] auto _ : state) {
        users.model->search = typing.next();
        benchmark::DoNotOptimize(users.model->rows().shown().size());
    }
    state.SetLabel(wordOf(state).toStdString());
}

/// A key in the search field until the frame with the rows found, an account being selected.
void typeInSearch(benchmark::State& state)
{
    LoadedUsers users;
    AdminUsersView view(users.model);
    view.resize(960, 728);
    view.show();
    settle();
    users.load();
    users.model->select(users.model->rows().idAt(userCount / 2));
    settle();
    auto* field = view.findChild<SearchField*>();
    Typing typing(wordOf(state));
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        const QString wanted = typing.next();
        const QChar letter = wanted.isEmpty() ? QChar() : wanted.back();
        thread.measure([&] {
            if (typing.grows())
                QTest::keyClick(field, letter.toLatin1());
            else
                QTest::keyClick(field, Qt::Key_Backspace);
        });
        if (users.model->search.value() != wanted)
            state.SkipWithError("the key did not arrive");
    }
    state.SetLabel(wordOf(state).toStdString());
}

BENCHMARK(scanTexts)->DenseRange(0, 2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(filterRows)->DenseRange(0, 2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(typeInSearch)->DenseRange(0, 2)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
