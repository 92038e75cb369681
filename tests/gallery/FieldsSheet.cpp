#include "Specimens.h"

#include "Components/CalendarPopup.h"
#include "Components/Card.h"
#include "Components/ComboBox.h"
#include "Components/DateTimeField.h"
#include "Components/DropArea.h"
#include "Components/LabeledField.h"
#include "Components/MonthGrid.h"
#include "Components/PlainLabel.h"
#include "Components/ProgressBar.h"
#include "Components/SearchField.h"
#include "Components/SecondaryButton.h"
#include "Components/SecureField.h"
#include "Components/TextEditor.h"
#include "Components/TextField.h"
#include "Layouts.h"
#include "PlainText.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QToolTip>

using namespace Qt::StringLiterals;
using namespace Specimens;

namespace {

constexpr int fieldWidth = 200;
const QDate chosenDay(2026, 3, 12);

void addGroup(Card* card, const QString& title, QWidget* specimens)
{
    card->add(heading(title), 24);
    card->add(specimens, 12);
}

TextField* email(const QString& text)
{
    auto* field = new TextField(u"Email"_s, u"name@example.com"_s);
    field->setText(text);
    return field;
}

TextField* hoveredEmail(const QString& text)
{
    auto* field = email(text);
    hovered(field->lineEdit());
    return field;
}

ComboBox* identity(const QString& value)
{
    auto* box = new ComboBox({{u"NY Driver License"_s, u"ny"_s},
        {u"Out-of-State Driver License"_s, u"other"_s}, {u"Passport"_s, u"passport"_s},
        {u"State ID"_s, u"state"_s}, {u"Other Government ID"_s, u"government"_s}});
    box->setPrompt(u"Select ID"_s);
    box->setValue(value);
    return box;
}

LabeledField* identityField(ComboBox* box)
{
    return new LabeledField(u"ID Type"_s, box);
}

QWidget* openList(ComboBox* box, int width, int highlighted)
{
    box->setFixedWidth(width);
    box->show();
    box->showPopup();
    QApplication::processEvents();
    box->view()->setCurrentIndex(box->model()->index(highlighted, 0));
    auto* list = picture(box->view()->window()->grab());
    box->hidePopup();
    delete box;
    return list;
}

QWidget* openMenu()
{
    QMenu menu;
    auto* book = menu.addAction(u"Book Remote Notary"_s);
    book->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_B);
    menu.addAction(u"Sessions"_s)->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    menu.addSeparator();
    menu.addAction(u"Settings"_s)->setShortcut(Qt::CTRL | Qt::Key_Comma);
    menu.setMinimumWidth(300);
    menu.popup({});
    menu.setActiveAction(book);
    QApplication::processEvents();
    return picture(menu.grab());
}

QWidget* toolTip(const QString& text)
{
    QToolTip::showText({200, 200}, PlainText::toolTip(text));
    QApplication::processEvents();
    QWidget* result = new QWidget;
    for (auto* window : QApplication::topLevelWidgets()) {
        if (window->inherits("QTipLabel") && window->isVisible())
            result = picture(window->grab());
    }
    QToolTip::hideText();
    return result;
}

Card* fields(Sheet& sheet)
{
    const auto address = u"priya.raman@example.com"_s;
    auto* card = new Card;
    auto* focusedEmail = email(address);
    addGroup(card, u"Text field 36 px"_s,
        strip({captioned(u"Placeholder"_s, email({}), fieldWidth),
            captioned(u"Filled"_s, email(address), fieldWidth),
            captioned(u"Hover"_s, hoveredEmail(address), fieldWidth),
            captioned(u"Focus"_s, focused(sheet, focusedEmail, focusedEmail->lineEdit()), fieldWidth),
            captioned(u"Disabled"_s, disabled(email(address)), fieldWidth)}));
    auto* focusedBox = identity(u"passport"_s);
    addGroup(card, u"Combo box 36 px"_s,
        strip({captioned(u"Prompt"_s, identityField(identity({})), fieldWidth),
            captioned(u"Chosen"_s, identityField(identity(u"passport"_s)), fieldWidth),
            captioned(u"Hover"_s, identityField(hovered(identity(u"passport"_s))), fieldWidth),
            captioned(u"Focus"_s, focused(sheet, identityField(focusedBox), focusedBox), fieldWidth),
            captioned(u"Disabled"_s, disabled(identityField(identity(u"passport"_s))), fieldWidth)}));
    auto* when = new DateTimeField(QTimeZone::utc());
    when->setValue(QDateTime(chosenDay, QTime(14, 30), Qt::UTC));
    auto* secret = new SecureField({});
    secret->setText(u"secret1234"_s);
    auto* editor = new TextEditor({});
    editor->setText(u"Durable power of attorney for two signers."_s);
    editor->edit()->moveCursor(QTextCursor::End);
    addGroup(card, u"Search, date, concealed, text editor"_s,
        strip({captioned(u"Search"_s, new SearchField(u"Search name, email, phone, role"_s), 260),
            captioned(u"Date and time"_s, when, 240), captioned(u"Concealed"_s, secret, 180),
            captioned(u"Text editor, focus"_s, focused(sheet, editor, editor->edit()), 310)}));
    auto* roles = new ComboBox({{u"Client"_s, u"client"_s, u"person.fill"_s},
        {u"Notary"_s, u"notary"_s, u"checkmark.seal.fill"_s}, {u"Admin"_s, u"admin"_s, u"gearshape.fill"_s}});
    roles->setValue(u"admin"_s);
    addGroup(card, u"Open combo list"_s,
        strip({captioned(u"Item: default, hover, chosen"_s, openList(identity(u"passport"_s), 260, 1)),
            captioned(u"Role entry with its symbol"_s, openList(roles, 200, 0)),
            captioned(u"Application menu"_s, openMenu())}));
    return card;
}

void pointAt(QWidget* viewport, const QPointF& spot)
{
    QMouseEvent move(
        QEvent::MouseMove, spot, viewport->mapToGlobal(spot), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &move);
}

Card* popups(Sheet& sheet)
{
    auto* calendar = new CalendarPopup;
    calendar->setDates(chosenDay, chosenDay.addDays(-1), chosenDay.addDays(-1));
    sheet.stage(calendar, [calendar] {
        const auto* days = calendar->days();
        pointAt(days->viewport(), days->visualRect(days->model()->index(2, 3)).center());
    });
    auto* card = new Card;
    addGroup(card, u"Calendar popup and tooltip"_s,
        strip(
            {captioned(
                 u"Past days cannot be chosen; today outlined, chosen day filled, one day under the pointer"_s,
                 calendar),
                captioned(u"Tooltip (full text of an elided line)"_s,
                    toolTip(u"Oscar Lindqvist, Noor Haddad, Ines Duarte"_s))}));
    return card;
}

DropArea* dropArea()
{
    auto* area = new DropArea(u"tray.and.arrow.up.fill"_s, u"Drop files for this booking"_s,
        {u"PDFs, images, Word files, Excel files, and common office documents can be attached before submission."_s,
            u"No desktop file-count limit. Your server controls maximum upload size."_s});
    area->addButton(new SecondaryButton(u"Choose Files"_s, u"plus.circle.fill"_s));
    return area;
}

DropArea* hoveredDropArea()
{
    auto* area = dropArea();
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(u"/deed.pdf"_s)});
    QDragEnterEvent enter({}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(area, &enter);
    return area;
}

QWidget* progress(const QString& text, int done, int total)
{
    auto* bar = new ProgressBar(text);
    bar->setProgress(done, total);
    return Layouts::holding(Layouts::column(8, {new PlainLabel(text, Type::small, Brand::steel), bar}));
}

Card* uploads()
{
    auto* card = new Card;
    addGroup(card, u"Drop area"_s,
        strip({captioned(u"Idle"_s, dropArea(), 520),
            captioned(u"Files hovering over it"_s, hoveredDropArea(), 520)}));
    addGroup(card, u"Upload progress"_s,
        strip({captioned(u"Running"_s, progress(u"Uploading 2 of 3: deed.pdf"_s, 1, 2), 340),
            captioned(u"Starting"_s, progress(u"Preparing files…"_s, 0, 0), 340),
            captioned(u"Done"_s, progress(u"Upload complete."_s, 3, 3), 340)}));
    return card;
}

} // namespace

QWidget* makeFieldsSheet()
{
    auto* sheet = new Sheet;
    sheet->column()->addWidget(fields(*sheet));
    sheet->column()->addWidget(popups(*sheet));
    sheet->column()->addWidget(uploads());
    return sheet;
}
