#pragma once

class BookRemoteNotaryModel;
class Card;

/// The sections of the booking form that show and edit fields of the model and do nothing else. The model
/// must outlive them.
namespace BookingSections {

Card* contact(BookRemoteNotaryModel& model);
Card* billing(BookRemoteNotaryModel& model);
Card* document(BookRemoteNotaryModel& model);
/// Witness, apostille and notes.
Card* extras(BookRemoteNotaryModel& model);

} // namespace BookingSections
