#pragma once

class Card;
class SettingsContentModel;
class TextField;

/// The cards of the settings: each shows and edits one part of the model, which must outlive them.
namespace SettingsCards {

Card* account(SettingsContentModel& model);
Card* profile(SettingsContentModel& model);
/// \param chosen  is set to the field of the new password
Card* password(SettingsContentModel& model, TextField*& chosen);
Card* preferences(SettingsContentModel& model);
Card* about(SettingsContentModel& model);

} // namespace SettingsCards
