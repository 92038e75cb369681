#include "Booking/ScheduleSection.h"

#include "Bindings.h"
#include "Booking/BookRemoteNotaryModel.h"
#include "Components/DateTimeField.h"
#include "Components/PlainLabel.h"
#include "Components/SectionTitle.h"
#include "Components/Switch.h"
#include "Layouts.h"

using namespace Qt::StringLiterals;

static constexpr int pickerWidth = 248;
static constexpr int narrowestNotes = 200;
static constexpr int betweenRows = 12;

namespace {

/// The picker of the appointment. Its earliest moment is the current one whenever the person comes to it; a
/// moment that has passed since it was chosen is shown as it is, because that is what would be sent.
class AppointmentPicker : public DateTimeField
{
public:
    explicit AppointmentPicker(BookRemoteNotaryModel& model) : model_(model)
    {
        follow(this, model_.scheduledDate, [this](const QDateTime& moment) {
            if (moment < now())
                setEarliest(moment);
            setValue(moment);
        });
        connect(this, &DateTimeField::valueChanged, this,
            [this](const QDateTime& moment) { model_.scheduledDate = moment; });
    }

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        setEarliest(now());
        DateTimeField::focusInEvent(event);
    }

private:
    QDateTime now() const { return model_.context().now(); }

    BookRemoteNotaryModel& model_;
};

/// The picker and what is to be known about it, side by side where there is room.
class Appointment : public QWidget
{
public:
    Appointment(QWidget* picker, QLayout* notes) : row_(Layouts::row(Spacing::fieldsAcross, {picker}))
    {
        row_->addLayout(notes, 1);
        setLayout(row_);
    }

protected:
    void resizeEvent(QResizeEvent*) override
    {
        const bool beside = width() >= Type::scaled(pickerWidth + narrowestNotes);
        row_->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    }

private:
    QBoxLayout* row_;
};

} // namespace

ScheduleSection::ScheduleSection(BookRemoteNotaryModel& model)
{
    auto* asap = new Switch(u"ASAP, earliest available"_s);
    bind(asap, model.asap);
    QWidget* appointment = makeAppointment(model);

    auto* rows = Layouts::column(betweenRows, {asap, appointment});
    rows->setAlignment(asap, Qt::AlignLeading);
    add(new SectionTitle(
        u"Preferred Date & Time"_s, u"Choose ASAP or schedule a future appointment time."_s));
    add(rows, Spacing::fieldsDown);
    // In its place first: shown before, it would be a window of its own for a moment.
    follow(appointment, model.asap, [appointment](bool on) { appointment->setVisible(!on); });
}

QWidget* ScheduleSection::makeAppointment(BookRemoteNotaryModel& model)
{
    auto* picker = new AppointmentPicker(model);
    picker->setAccessibleName(u"Preferred Date & Time"_s);
    picker->setFixedWidth(Type::scaled(pickerWidth));
    picker_ = picker;

    auto* newYork = new PlainLabel({}, Type::small, Brand::steel);
    auto* blocked = new PlainLabel(u"Past dates and times are blocked."_s, Type::small, Brand::steel);

    auto* notes = Layouts::column(0);
    notes->addStretch();
    notes->addWidget(newYork);
    notes->addWidget(blocked);
    notes->addStretch();
    auto* appointment = new Appointment(picker, notes);
    follow(newYork, model.scheduledDate, [newYork, &model](const QDateTime&) {
        const QString text = model.newYorkTimeText();
        newYork->setText(text);
        newYork->setVisible(!text.isEmpty());
    });
    return appointment;
}
