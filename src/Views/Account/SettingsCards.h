#pragma once

class Card;
class SettingsContentModel;

/// The cards of the settings: each shows and edits one part of the model, which must outlive them.
namespace SettingsCards {

Card* account(SettingsContentModel& model);
Card* profile(SettingsContentModel& model);
Card* password(SettingsContentModel& model);
Card* preferences(SettingsContentModel& model);
Card* about(SettingsContentModel& model);

} // namespace SettingsCards
