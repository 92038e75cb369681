#pragma once

class Card;
class SessionDetailModel;

/// The cards in which a session is changed. The model must outlive them.
namespace SessionControls {

Card* notary(SessionDetailModel& model);
Card* admin(SessionDetailModel& model);

} // namespace SessionControls
