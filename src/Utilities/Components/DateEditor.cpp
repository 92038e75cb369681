#include "DateEditor.h"

#include "CalendarPopup.h"
#include "DateEditorAccessible.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = Spacing::fieldPadding + 1;
constexpr int gap = 8;

} // namespace

DateEditor::DateEditor(Kind kind, QWidget* parent) : QDateTimeEdit(parent), kind_(kind)
{
    // Qt would turn the parts of the date around, which an English date does not survive.
    setLayoutDirection(Qt::LeftToRight);
    if (QGuiApplication::isRightToLeft())
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    setDisplayFormat(kind == Kind::date ? u"MMM d, yyyy"_s : u"MMM d, yyyy, h:mm AP"_s);
    setTimeSpec(Qt::UTC);
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setAttribute(Qt::WA_Hover);
    setFont(Type::font(Type::body));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    lineEdit()->installEventFilter(this);

    DateEditorAccessible::install();
    // The part that is selected, once it is settled which that is.
    connect(lineEdit(), &QLineEdit::selectionChanged, this, &DateEditor::tellPart, Qt::QueuedConnection);
    connect(this, &QDateTimeEdit::dateTimeChanged, this, &DateEditor::tellWhole);
}

QSize DateEditor::sizeHint() const
{
    const int text = PlainText::width(u"Mmm 88, 8888"_s, Type::body)
        + (kind_ == Kind::dateAndTime ? PlainText::width(u", 88:88 PM"_s, Type::body) : 0);
    const int symbols = kind_ == Kind::date ? gap + IconSize::button()
                                            : IconSize::button() + gap + gap + IconSize::chevron();
    return {text + symbols + 2 * padding + Type::scaled(8), Height::control()};
}

QSize DateEditor::minimumSizeHint() const
{
    return sizeHint();
}

QRect DateEditor::leadingSymbol() const
{
    if (kind_ == Kind::date)
        return {};
    const int edge = IconSize::button();
    return QStyle::visualRect(
        QGuiApplication::layoutDirection(), rect(), {padding, (height() - edge) / 2, edge, edge});
}

QRect DateEditor::trailingSymbol() const
{
    const int edge = kind_ == Kind::date ? IconSize::button() : IconSize::chevron();
    return QStyle::visualRect(QGuiApplication::layoutDirection(), rect(),
        {width() - padding - edge, (height() - edge) / 2, edge, edge});
}

QRect DateEditor::partRect(QStyle::SubControl part) const
{
    if (part == QStyle::SC_SpinBoxFrame)
        return rect();
    if (part != QStyle::SC_SpinBoxEditField)
        return {};
    // The line inside adds 2 pixels of its own.
    const int before = padding - 2 + (kind_ == Kind::date ? 0 : IconSize::button() + gap);
    const int after = padding + (kind_ == Kind::date ? IconSize::button() : IconSize::chevron()) + gap;
    return QStyle::visualRect(
        QGuiApplication::layoutDirection(), rect(), {before, 2, width() - before - after, height() - 4});
}

CalendarPopup* DateEditor::calendar() const
{
    return popup_ && popup_->isVisible() ? popup_ : nullptr;
}

void DateEditor::openCalendar()
{
    if (calendar())
        return;
    popup_ = new CalendarPopup(this);
    popup_->setDates(date(), minimumDate(), QDate::currentDate());
    connect(popup_, &CalendarPopup::picked, this, [this](const QDate& picked) { setDate(picked); });
    popup_->openBelow(this);
}

void DateEditor::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        openCalendar();
}

void DateEditor::keyPressEvent(QKeyEvent* event)
{
    const bool altDown = event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier;
    if (altDown || event->key() == Qt::Key_F4)
        openCalendar();
    else
        QDateTimeEdit::keyPressEvent(event);
}

bool DateEditor::eventFilter(QObject* watched, QEvent* event)
{
    const bool changesLook = event->type() == QEvent::Enter || event->type() == QEvent::Leave;
    if (watched == lineEdit() && changesLook)
        update();
    return QDateTimeEdit::eventFilter(watched, event);
}

void DateEditor::focusOutEvent(QFocusEvent* event)
{
    QDateTimeEdit::focusOutEvent(event);
    toldPart_ = noPart;
    entryPart_ = noPart;
}

/// As if each part were a control: a screen reader says the name of whatever gets the focus, and says nothing
/// of a name that changes.
void DateEditor::tellPart()
{
    const int part = currentSectionIndex();
    if (!hasFocus() || part == toldPart_)
        return;
    entryPart_ = toldPart_ == noPart ? part : noPart;
    toldPart_ = part;
    isAtPart_ = true;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(part);
    QAccessible::updateAccessibility(&event);
}

/// A change of its value is told only of a control that has the focus.
void DateEditor::tellWhole()
{
    if (!hasFocus() || !std::exchange(isAtPart_, false))
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void DateEditor::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    auto state = Paint::stateOf(*this, this);
    state.focused = state.focused || calendar();
    Paint::field(painter, rect(), state);
    const auto color = Palette::color(isEnabled() ? Brand::steel : Brand::muted);
    if (kind_ == Kind::date)
        return Symbols::paint(painter, trailingSymbol(), u"calendar"_s, color);
    Symbols::paint(painter, leadingSymbol(), u"calendar"_s, color);
    Symbols::paint(painter, trailingSymbol(), u"chevron.up.chevron.down"_s, color);
}
