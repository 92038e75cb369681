#pragma once

class QWidget;

/// What assistive technology is told of its own accord. Qt tells too much, and some of it too early:
/// - what is typed into a field that conceals it, character by character; such a field now tells bullets;
/// - where caret and selection of a field are before it tells that the field has the focus, and again when
///   the focus has left it. A screen reader takes the one for a field that it knows already, and says the
///   other before the next field's name;
/// - a row that is selected in a list as if it had the focus, wherever that is;
/// - the selection of a date field, which stands for the part that is being changed (DateEditor tells that).
namespace AccessibleEvents {

/// Puts the rules before whoever is told at the time of the call: a handler of updates, or else the platform.
void install();

/// Lets a field of one line tell bullets even while its text can be read on screen: who reads it there need
/// not have it spoken.
void conceal(QWidget* field);

} // namespace AccessibleEvents
