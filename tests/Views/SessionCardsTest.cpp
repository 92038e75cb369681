#include "SessionCardsTest.h"

#include "Components/PlainLabel.h"

#include <QFile>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SessionCardsTest::SessionCardsTest()
{
    signIn(account(u"Priya Raman"_s));
}

SessionCardsTest::~SessionCardsTest()
{
    close();
}

void SessionCardsTest::show(QSize size)
{
    constexpr int widest = 760;
    window = std::make_unique<Page>(widest, Page::Place::detail);
    messagesCard = new SessionMessagesCard(messages);
    documentsCard = new SessionDocumentsCard(documents, *window);
    window->column()->addWidget(messagesCard);
    window->column()->addWidget(documentsCard);
    window->resize(size);
    ScreensViewTest::show(*window);
}

void SessionCardsTest::close()
{
    window.reset();
    settle();
}

bool SessionCardsTest::shows(const QString& text) const
{
    for (const PlainLabel* label : window->findChildren<PlainLabel*>()) {
        if (label->isVisible() && label->text() == text)
            return true;
    }
    return false;
}

QString SessionCardsTest::focused()
{
    const QWidget* focus = QApplication::focusWidget();
    return focus ? focus->accessibleName() : QString();
}

void SessionCardsTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    settle();
}

void SessionCardsTest::type(const QString& text)
{
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClicks(QApplication::focusWidget(), text);
    settle();
}

QUrl SessionCardsTest::file(const QString& name, const QByteArray& content)
{
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return QUrl::fromLocalFile(file.fileName());
}

SessionMessage messageOf(qint64 id, const QString& text)
{
    return {id, u"client"_s, u"Sender %1"_s.arg(id), u"sender@example.com"_s, text, u"2026-03-10 09:42:10"_s};
}

QList<SessionMessage> longThread(int count)
{
    QList<SessionMessage> thread;
    for (int number = 1; number <= count; ++number)
        thread += messageOf(number, u"Message %1. "_s.arg(number).repeated(1 + number * 7 % 20));
    return thread;
}

RemoteDocumentUpload documentOf(const QByteArray& json)
{
    const JSONObject raw = JSONValue::parse(json)->object().value();
    return {raw.intValue(u"id"_s).value_or(0), raw};
}
