#pragma once

#include "Booking/BookRemoteNotaryModel.h"

#include <QHash>

class Card;
class QWidget;

/// The sections of the booking form that show and edit fields of the model and do nothing else. The model
/// must outlive them.
namespace BookingSections {

/// On screen, for whoever leads the person to one of them.
using Fields = QHash<BookRemoteNotaryModel::Field, QWidget*>;

/// \param fields  to which those of the section are added
Card* contact(BookRemoteNotaryModel& model, Fields& fields);
Card* billing(BookRemoteNotaryModel& model);
/// \param fields  to which those of the section are added
Card* document(BookRemoteNotaryModel& model, Fields& fields);
/// Witness, apostille and notes.
Card* extras(BookRemoteNotaryModel& model);

} // namespace BookingSections
