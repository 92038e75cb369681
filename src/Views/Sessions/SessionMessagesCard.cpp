#include "Sessions/SessionMessagesCard.h"

#include "Accessibility.h"
#include "AlertPresenter.h"
#include "Bindings.h"
#include "Components/PrimaryButton.h"
#include "Components/SectionTitle.h"
#include "Components/StackingRow.h"
#include "Components/TextEditor.h"
#include "Launch.h"
#include "Sessions/SessionMessageThread.h"
#include "Sessions/SessionMessagesModel.h"
#include "Sessions/SessionPartState.h"

#include <QPlainTextEdit>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

static constexpr int mostLines = 8;
static constexpr int besideEditor = 8;

SessionMessagesCard::SessionMessagesCard(std::shared_ptr<SessionMessagesModel> model, QWidget* parent)
    : Card(Spacing::card, parent), model_(std::move(model))
{
    const QString title = u"Messages"_s;
    Accessibility::setRole(this, QAccessible::Grouping);
    setAccessibleName(title);
    add(new SectionTitle(title));
    addThread();
    addEditor();
    content()->setSpacing(Spacing::fieldsDown);
}

SessionMessagesCard::~SessionMessagesCard()
{
    // What shows the model goes before it: this card may be the last to hold it.
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

void SessionMessagesCard::addThread()
{
    auto* state = new SessionPartState({u"Loading messages..."_s, u"No messages yet."_s,
        u"The messages could not be loaded."_s, u"Try Again to Load the Messages"_s});
    thread_ = new SessionMessageThread;
    add(state);
    add(thread_);
    connect(state, &SessionPartState::againRequested, this, [this] { launch(model_->loadMessages()); });
    const auto showState = [&model = *model_, state] {
        state->show(model.isLoaded.value(), model.isMissing.value(), model.messages().isEmpty());
    };
    const auto showThread = [this, showState] {
        thread_->setMessages(model_->messages());
        thread_->setVisible(!model_->messages().isEmpty());
        showState();
    };
    connect(model_.get(), &SessionMessagesModel::messagesChanged, this, showThread);
    showThread();
    follow(state, model_->isLoaded, [showState](bool) { showState(); });
    follow(state, model_->isMissing, [showState](bool) { showState(); });
}

void SessionMessagesCard::addEditor()
{
    auto* editor = new TextEditor({}, u"Write a message"_s);
    editor->setGrowing(mostLines);
    editor->edit()->setAccessibleName(u"New Message"_s);
    editor->edit()->setAccessibleDescription(u"Ctrl+Enter sends."_s);
    bind(editor, model_->newMessage);
    auto* button = new PrimaryButton(u"Send Message"_s);
    button->setToolTip(u"Ctrl+Enter"_s);
    follow(button, model_->isSending, [button](bool sending) { button->setLoading(sending); });
    connect(button, &Button::clicked, this, &SessionMessagesCard::send);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut
            = new QShortcut(Qt::CTRL | key, editor, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, &SessionMessagesCard::send);
    }
    auto* row = new StackingRow(besideEditor);
    row->add(editor, 1);
    row->add(button, 0, Qt::AlignBottom);
    add(row);
}

/// Whoever writes wants to see the message in its place.
void SessionMessagesCard::send()
{
    thread_->scrollToNewest();
    launch(model_->sendMessage());
}

void SessionMessagesCard::showEvent(QShowEvent* event)
{
    Card::showEvent(event);
    // Only now is the window known that an alert goes over.
    if (!std::exchange(wasShown_, true))
        presentAlerts(this, model_->alert, [model = model_] { model->dismissAlert(); });
}
