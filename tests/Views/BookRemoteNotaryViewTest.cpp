#include "BookRemoteNotaryViewTest.h"

#include "Components/PlainLabel.h"

#include <QFile>

using namespace Qt::StringLiterals;

BookRemoteNotaryViewTest::BookRemoteNotaryViewTest()
{
    now = QDateTime(QDate(2026, 3, 11), QTime(15, 0), Qt::UTC);
    AuthUser user = account(u"Maya Whitfield"_s, {AppRole::business});
    user.email = u"maya.whitfield@example.com"_s;
    signIn(user);
    model = std::make_shared<BookRemoteNotaryModel>(context);
}

void BookRemoteNotaryViewTest::show(QSize size)
{
    view = new BookRemoteNotaryView(model);
    window.setScreen(view);
    window.resize(size);
    ScreensViewTest::show(window);
    if (webSession->pending() == QList<qsizetype>{0})
        answer(0, "{}");
}

void BookRemoteNotaryViewTest::leave()
{
    window.setScreen(new QWidget);
    view = nullptr;
    settle();
}

void BookRemoteNotaryViewTest::fillIn()
{
    model->contactName = u"Maya Whitfield"_s;
    model->contactEmail = u"maya.whitfield@example.com"_s;
    model->scheduledDate = now.addDays(1);
    model->details = u"Sign the deed"_s;
    model->editSigner(0, [](SignerDraft& signer) {
        signer.name = u"Priya Raman"_s;
        signer.idType = u"Passport"_s;
    });
    emit model->signerChanged(0);
}

QUrl BookRemoteNotaryViewTest::file(const QString& name, const QByteArray& content)
{
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return QUrl::fromLocalFile(file.fileName());
}

void BookRemoteNotaryViewTest::attach(const QList<QString>& names)
{
    QList<QUrl> files;
    for (const QString& name : names)
        files += file(name);
    model->addBookingFileURLs(files);
    settle();
}

bool BookRemoteNotaryViewTest::shows(const QString& text) const
{
    for (const PlainLabel* label : view->findChildren<PlainLabel*>()) {
        if (label->isVisible() && label->text() == text)
            return true;
    }
    return false;
}

QString BookRemoteNotaryViewTest::focused()
{
    const QWidget* focus = QApplication::focusWidget();
    return focus ? focus->accessibleName() : QString();
}

void BookRemoteNotaryViewTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : &window, key, modifiers);
    settle();
}

void BookRemoteNotaryViewTest::type(QWidget* field, const QString& text)
{
    field->setFocus(Qt::TabFocusReason);
    QTest::keySequence(field, QKeySequence::SelectAll);
    QTest::keyClicks(field, text);
    settle();
}

void BookRemoteNotaryViewTest::tabTo(const QString& name)
{
    constexpr int fullRound = 200;
    for (int presses = 0; focused() != name && presses < fullRound; ++presses)
        press(Qt::Key_Tab);
    EXPECT_EQ(focused(), name);
}
