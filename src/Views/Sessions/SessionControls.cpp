#include "Sessions/SessionControls.h"

#include "Accessibility.h"
#include "Bindings.h"
#include "Components/Card.h"
#include "Components/ComboBox.h"
#include "Components/DestructiveButton.h"
#include "Components/FieldGrid.h"
#include "Components/PrimaryButton.h"
#include "Components/QuestionDialog.h"
#include "Components/SectionTitle.h"
#include "Components/StackingRow.h"
#include "Components/Switch.h"
#include "Components/TextEditor.h"
#include "Components/TextField.h"
#include "Launch.h"
#include "Lists/WorkButtons.h"
#include "Sessions/SessionDetailModel.h"

using namespace Qt::StringLiterals;

using Work = SessionDetailModel::Work;

static constexpr int fewestNoteLines = 2;
static constexpr int mostNoteLines = 6;

static QList<ComboBox::Option> options(const QList<SessionDetailModel::Choice>& choices)
{
    QList<ComboBox::Option> options;
    for (const SessionDetailModel::Choice& choice : choices)
        options += {choice.label, choice.value};
    return options;
}

static QWidget* textField(const QString& caption, const QString& placeholder, QProperty<QString>& property)
{
    auto* field = new TextField(caption, placeholder);
    bind(field, property);
    return field;
}

static QWidget* statusPicker(SessionDetailModel& model)
{
    auto* picker = new ComboBox(options(model.statusChoices()));
    bind(picker, model.status);
    QObject::connect(&model, &SessionDetailModel::sessionChanged, picker,
        [picker, &model] { picker->setOptions(options(model.statusChoices())); });
    return new LabeledField(u"Status"_s, picker);
}

static QWidget* notaryPicker(SessionDetailModel& model)
{
    auto* picker = new ComboBox;
    const auto offer = [picker, &model] { picker->setOptions(options(model.notaryChoices())); };
    offer();
    QObject::connect(&model, &SessionDetailModel::sessionChanged, picker, offer);
    QObject::connect(&model, &SessionDetailModel::notariesChanged, picker, offer);
    follow(picker, model.selectedNotaryId, [picker](qint64 id) { picker->setValue(QString::number(id)); });
    QObject::connect(picker, &ComboBox::valueChanged, &model, [&model](const QString& value) {
        if (!value.isEmpty())
            model.selectedNotaryId = value.toLongLong();
    });
    return new LabeledField(u"Assigned Notary"_s, picker);
}

/// What a notary and an admin both begin with.
/// A note takes whole sentences, so it has a row to itself and grows with its text.
static QWidget* statusNote(SessionDetailModel& model)
{
    auto* note = new TextEditor(u"Status Note"_s);
    note->setGrowing(mostNoteLines, fewestNoteLines);
    bind(note, model.statusNote);
    return note;
}

static FieldGrid* scheduleFields(SessionDetailModel& model)
{
    auto* grid = new FieldGrid;
    grid->add(statusPicker(model), FieldGrid::third, FieldGrid::whole);
    grid->add(textField(u"Confirmed Date"_s, u"YYYY-MM-DD"_s, model.confirmedDate), FieldGrid::third,
        FieldGrid::half);
    grid->add(
        textField(u"Confirmed Time"_s, u"2:30 PM"_s, model.confirmedTime), FieldGrid::third, FieldGrid::half);
    grid->add(textField(u"Proposed Fee"_s, u"0.00"_s, model.proposedFee), FieldGrid::third, FieldGrid::half);
    return grid;
}

static Card* card(const QString& title, FieldGrid* fields, QWidget* buttons)
{
    auto* made = new Card({new SectionTitle(title), fields});
    made->add(buttons, Spacing::fieldsDown);
    Accessibility::setRole(made, QAccessible::Grouping);
    made->setAccessibleName(title);
    return made;
}

Card* SessionControls::notary(SessionDetailModel& model)
{
    FieldGrid* fields = scheduleFields(model);
    auto* witness = new Switch(u"Witness Required"_s);
    bind(witness, model.requiresWitness);
    fields->add(witness, FieldGrid::twoThirds, FieldGrid::half);
    auto* name = textField(u"Witness Name / Notes"_s, {}, model.witnessName);
    follow(name, model.requiresWitness, [name](bool required) { name->setEnabled(required); });
    fields->add(name, FieldGrid::whole, FieldGrid::whole);
    fields->add(statusNote(model), FieldGrid::whole, FieldGrid::whole);

    auto* save = new PrimaryButton(u"Save Notary Update"_s);
    showWork(save, model, Work::notaryUpdate);
    QObject::connect(save, &Button::clicked, save, [&model] { launch(model.saveNotary()); });
    save->setWraps(true);
    auto* buttons = new StackingRow(Spacing::buttons);
    buttons->addStretch();
    buttons->add(save);
    return card(u"Notary Controls"_s, fields, buttons);
}

Card* SessionControls::admin(SessionDetailModel& model)
{
    FieldGrid* fields = scheduleFields(model);
    fields->add(notaryPicker(model), FieldGrid::twoThirds, FieldGrid::half);
    fields->add(statusNote(model), FieldGrid::whole, FieldGrid::whole);

    auto* remove = new DestructiveButton(u"Delete Session"_s, u"trash"_s);
    auto* save = new PrimaryButton(u"Save Admin Changes"_s);
    remove->setWraps(true);
    showWork(remove, model, Work::deletion);
    showWork(save, model, Work::adminChanges);
    QObject::connect(remove, &Button::clicked, remove, [remove, &model] {
        const auto* question = QuestionDialog::ask(remove, SessionDetailModel::deleteQuestion());
        QObject::connect(question, &QDialog::accepted, remove, [&model] { launch(model.deleteSession()); });
    });
    QObject::connect(save, &Button::clicked, save, [&model] { launch(model.saveAdmin()); });
    save->setWraps(true);
    auto* buttons = new StackingRow(Spacing::buttons);
    buttons->add(remove);
    buttons->addStretch();
    buttons->add(save);
    return card(u"Admin Controls"_s, fields, buttons);
}
