#pragma once

#include "Components/AlertDialog.h"
#include "Components/Button.h"
#include "Page.h"
#include "ScreensViewTest.h"
#include "Sessions/SessionDocumentsCard.h"
#include "Sessions/SessionDocumentsModel.h"
#include "Sessions/SessionMessagesCard.h"
#include "Sessions/SessionMessagesModel.h"

#include <QTemporaryDir>

#include <memory>

/// The thread and the documents of session 7, on a page in a window of their own.
class SessionCardsTest : public ScreensViewTest
{
protected:
    SessionCardsTest();
    ~SessionCardsTest() override;

    void show(QSize size = {600, 700});
    /// The person goes elsewhere.
    void close();

    /// Whether a visible label reads so.
    bool shows(const QString& text) const;
    AlertDialog* alert() const { return window->findChild<AlertDialog*>(); }
    template <typename Control = QWidget>
    Control* control(const QString& name) const
    {
        return named<Control>(*window, name);
    }
    /// The accessible name of what has the focus.
    static QString focused();
    /// To whatever has the focus.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    static void type(const QString& text);
    /// Makes a file in a folder of the test's own.
    QUrl file(const QString& name, const QByteArray& content = "content");

    QTemporaryDir folder;
    std::shared_ptr<SessionMessagesModel> messages = std::make_shared<SessionMessagesModel>(context, 7);
    std::shared_ptr<SessionDocumentsModel> documents = std::make_shared<SessionDocumentsModel>(context, 7);
    std::unique_ptr<Page> window;
    SessionMessagesCard* messagesCard = nullptr;
    SessionDocumentsCard* documentsCard = nullptr;
};

/// A message of a thread, whose text may be anything.
SessionMessage messageOf(qint64 id, const QString& text);
/// So many messages of one to four lines.
QList<SessionMessage> longThread(int count);
RemoteDocumentUpload documentOf(const QByteArray& json);
