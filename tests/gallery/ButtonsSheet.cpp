#include "Specimens.h"

#include "Components/Card.h"
#include "Components/DestructiveButton.h"
#include "Components/OptionCard.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/QuietButton.h"
#include "Components/SecondaryButton.h"
#include "Components/SegmentedControl.h"
#include "Components/StatusPill.h"
#include "Components/Stepper.h"
#include "Components/Switch.h"
#include "Layouts.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QRadioButton>

using namespace Qt::StringLiterals;
using namespace Specimens;

namespace {

constexpr int groupGap = 24;
constexpr int headingGap = 12;

void addGroup(Card* card, const QString& title, QWidget* specimens)
{
    card->add(heading(title), groupGap);
    card->add(specimens, headingGap);
}

PrimaryButton* save()
{
    return new PrimaryButton(u"Save Record"_s, u"checkmark.circle"_s);
}
SecondaryButton* refresh()
{
    return new SecondaryButton(u"Refresh"_s, u"arrow.clockwise"_s);
}
DestructiveButton* remove()
{
    return new DestructiveButton(u"Delete"_s, u"trash"_s);
}
QuietButton* viewAll()
{
    return new QuietButton(u"View All"_s);
}

template <typename B>
B* sized(B* button, Button::Size size)
{
    button->setButtonSize(size);
    return button;
}

template <typename B>
B* loading(B* button)
{
    button->setLoading(true);
    return button;
}

Card* buttons(Sheet& sheet)
{
    auto* card = new Card;
    addGroup(card, u"PrimaryButton 36 px"_s,
        strip({captioned(u"Default"_s, save()), captioned(u"Hover"_s, hovered(save())),
            captioned(u"Pressed"_s, pressed(save())), captioned(u"Keyboard focus"_s, focused(sheet, save())),
            captioned(u"Disabled"_s, disabled(save())), captioned(u"Loading"_s, loading(save()))}));
    addGroup(card, u"SecondaryButton 36 px"_s,
        strip({captioned(u"Default"_s, refresh()), captioned(u"Hover"_s, hovered(refresh())),
            captioned(u"Pressed"_s, pressed(refresh())),
            captioned(u"Keyboard focus"_s, focused(sheet, refresh())),
            captioned(u"Disabled"_s, disabled(refresh()))}));
    addGroup(card, u"Destructive 36 px"_s,
        strip({captioned(u"Default"_s, remove()), captioned(u"Hover"_s, hovered(remove())),
            captioned(u"Pressed"_s, pressed(remove())),
            captioned(u"Keyboard focus"_s, focused(sheet, remove())),
            captioned(u"Disabled"_s, disabled(remove()))}));
    addGroup(card, u"Quiet text button 28 px"_s,
        strip({captioned(u"Default"_s, viewAll()), captioned(u"Hover"_s, hovered(viewAll())),
            captioned(u"Pressed"_s, pressed(viewAll())),
            captioned(u"Keyboard focus"_s, focused(sheet, viewAll())),
            captioned(u"Disabled"_s, disabled(viewAll()))}));
    const auto submit
        = [] { return sized(new PrimaryButton(u"Submit Remote Notary Request"_s), Button::Size::large); };
    addGroup(card, u"Other sizes"_s,
        strip({captioned(u"Small primary 28"_s, sized(new PrimaryButton(u"Accept"_s), Button::Size::small)),
            captioned(u"Small secondary 28"_s,
                sized(new SecondaryButton(u"Open"_s, u"arrow.up.right.square"_s), Button::Size::small)),
            captioned(u"Large 44"_s, submit()), captioned(u"Large, loading"_s, loading(submit()))}));
    return card;
}

Switch* onOff(bool on)
{
    auto* result = new Switch(u"Witness Required"_s);
    result->setLabelVisible(false);
    result->setChecked(on);
    return result;
}

Stepper* stepper(int value = 3)
{
    auto* result = new Stepper(u"Number of Signatures"_s, 1, 20);
    result->setValue(value);
    return result;
}

void pressPlus(Stepper* stepper, QEvent::Type type)
{
    const QPointF spot = stepper->partRect(QStyle::SC_SpinBoxUp).center();
    QMouseEvent event(type, spot, stepper->mapToGlobal(spot), Qt::LeftButton,
        type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(stepper, &event);
}

Stepper* pointedAt(Sheet& sheet, bool pressed)
{
    auto* result = hovered(stepper());
    sheet.stage(
        result,
        [result, pressed] {
            QCursor::setPos(result->mapToGlobal(result->partRect(QStyle::SC_SpinBoxUp).center()));
            if (pressed)
                pressPlus(result, QEvent::MouseButtonPress);
        },
        [result, pressed] {
            if (pressed)
                pressPlus(result, QEvent::MouseButtonRelease);
            QCursor::setPos(0, 0);
        });
    return result;
}

SegmentedControl* appearance(const QString& value)
{
    auto* result = new SegmentedControl(
        u"Appearance"_s, {{u"Light"_s, u"light"_s}, {u"Dark"_s, u"dark"_s}, {u"System"_s, u"system"_s}});
    result->setValue(value);
    return result;
}

OptionCard* billing()
{
    return new OptionCard(u"No-Rush Document Retrieval"_s);
}

Card* choices(Sheet& sheet)
{
    auto* card = new Card;
    addGroup(card, u"Switch"_s,
        strip({captioned(u"Off"_s, onOff(false)), captioned(u"Off, hover"_s, hovered(onOff(false))),
            captioned(u"On"_s, onOff(true)), captioned(u"On, hover"_s, hovered(onOff(true))),
            captioned(u"Keyboard focus"_s, focused(sheet, onOff(true))),
            captioned(u"Disabled off"_s, disabled(onOff(false))),
            captioned(u"Disabled on"_s, disabled(onOff(true))),
            captioned(u"With label"_s, checked(new Switch(u"Witness Required"_s)))}));
    auto* labelled = Layouts::row(12, {new PlainLabel(u"Number of Signatures: 3"_s, Type::label), stepper()});
    addGroup(card, u"Stepper"_s,
        strip({captioned(u"Default"_s, stepper()), captioned(u"Hover on plus"_s, pointedAt(sheet, false)),
            captioned(u"Pressed on plus"_s, pointedAt(sheet, true)),
            captioned(u"At the minimum"_s, stepper(1)),
            captioned(u"Keyboard focus"_s, focused(sheet, stepper())),
            captioned(u"Disabled"_s, disabled(stepper())),
            captioned(u"With label"_s, Layouts::holding(labelled))}));
    auto* second = appearance(u"light"_s);
    hovered(second->findChildren<QRadioButton*>().at(1));
    auto* focusedControl = appearance(u"system"_s);
    addGroup(card, u"Segmented control"_s,
        strip({captioned(u"Default"_s, appearance(u"light"_s), 260),
            captioned(u"Hover on the second"_s, second, 260),
            captioned(u"Keyboard focus"_s,
                focused(sheet, focusedControl, focusedControl->findChildren<QRadioButton*>().at(2)), 260),
            captioned(u"Disabled"_s, disabled(appearance(u"system"_s)), 220)}));
    addGroup(card, u"Billing option"_s,
        strip({captioned(u"Default"_s, billing(), 250), captioned(u"Hover"_s, hovered(billing()), 250),
            captioned(u"Selected"_s, checked(billing()), 250),
            captioned(u"Keyboard focus"_s, focused(sheet, checked(billing())), 250)}));
    addGroup(card, u"StatusPill"_s,
        strip(
            {captioned(u"Empty status"_s, new StatusPill), captioned(u" "_s, new StatusPill(u"scheduled"_s)),
                captioned(u" "_s, new StatusPill(u"rescheduled"_s)),
                captioned(u" "_s, new StatusPill(u"completed"_s)),
                captioned(u" "_s, new StatusPill(u"cancelled"_s))}));
    return card;
}

} // namespace

QWidget* makeButtonsSheet()
{
    auto* sheet = new Sheet;
    sheet->column()->addWidget(buttons(*sheet));
    sheet->column()->addWidget(choices(*sheet));
    return sheet;
}
