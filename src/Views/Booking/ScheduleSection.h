#pragma once

#include "Components/Card.h"

class BookRemoteNotaryModel;
class QWidget;

/// When the appointment should be: as soon as possible, or at a moment from now on. The picker shows the
/// person's own time; New York's stands beside it where the clocks differ.
class ScheduleSection : public Card
{
    Q_OBJECT

public:
    explicit ScheduleSection(BookRemoteNotaryModel& model);

    QWidget* picker() const { return picker_; }

private:
    QWidget* makeAppointment(BookRemoteNotaryModel& model);

    QWidget* picker_ = nullptr;
};
