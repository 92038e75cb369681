#pragma once

#include "Booking/BookRemoteNotaryModel.h"
#include "Booking/BookRemoteNotaryView.h"
#include "Components/AlertDialog.h"
#include "Components/Button.h"
#include "ScreensViewTest.h"
#include "Shell/ContentPane.h"

#include <QTemporaryDir>

#include <stdexcept>

/// The booking screen of a signed-in client, who may also work for a business, in a window of its own. The
/// time zone is UTC.
class BookRemoteNotaryViewTest : public ScreensViewTest
{
protected:
    BookRemoteNotaryViewTest();

    /// Makes a new view of the model and shows it in the place of an earlier one. The profile that the first
    /// view asks for is empty.
    void show(QSize size = {960, 728});
    /// What a visit to another section does to the view.
    void leave();
    /// Fills in a request that passes every check.
    void fillIn();
    /// Makes a file in a folder of the test's own.
    QUrl file(const QString& name, const QByteArray& content = "content");
    void attach(const QList<QString>& names);

    /// The only visible control of that accessible name; throws when there is not exactly one.
    template <typename W = QWidget>
    W* named(const QString& name, const QWidget* within = nullptr) const
    {
        QList<W*> found;
        for (W* widget : (within ? within : view)->findChildren<W*>()) {
            if (widget->isVisible() && widget->accessibleName() == name)
                found += widget;
        }
        if (found.size() != 1)
            throw std::runtime_error(std::to_string(found.size()) + " controls named " + name.toStdString());
        return found.constFirst();
    }
    QWidget* contact() const { return named(QStringLiteral("Contact Information")); }
    QWidget* signer(int number) const { return named(QStringLiteral("Signer %1").arg(number)); }
    Button* submitButton() const { return named<Button>(QStringLiteral("Submit Remote Notary Request")); }
    /// Whether a visible label reads so.
    bool shows(const QString& text) const;
    AlertDialog* alert() const { return window.findChild<AlertDialog*>(); }
    /// The accessible name of what has the focus.
    static QString focused();

    /// To whatever has the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// Replaces a field's text.
    static void type(QWidget* field, const QString& text);
    /// Presses Tab until the focus is on a control of that name; fails the test after a full round.
    void tabTo(const QString& name);

    QTemporaryDir folder;
    std::shared_ptr<BookRemoteNotaryModel> model;
    ContentPane window;
    BookRemoteNotaryView* view = nullptr;
};

inline QAccessibleInterface* accessible(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}
