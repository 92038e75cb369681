#pragma once

#include "Moment.h"
#include "Store/Id.h"

#include <nlohmann/json.hpp>

#include <string>

namespace bridge {

/// This service answers as one that has grown over years: the same fact under several keys, numbers as text,
/// missing values in several spellings. Which spelling a record gets follows from its id alone, so that every
/// answer can be predicted.
enum class Variant
{
    Plain,
    Texts,
    Aliases
};

/// Of the record with this id: the ids 3, 4, 5 have the variants Plain, Texts, Aliases, and so on in turn.
Variant variantOf(Id id);

/// A number as a number, or, in the variant Texts, as its decimal digits.
nlohmann::json looseNumber(Variant variant, long long number);

/// An id; missing for 0.
nlohmann::json looseId(Variant variant, Id id);

/// A text; empty ones become "", "NULL" or null.
nlohmann::json looseText(Variant variant, const std::string& text);

/// True is written true, "1" or "yes"; false is written false, "0" or null.
nlohmann::json looseFlag(Variant variant, bool flag);

/// How created_at is shown: New York time.
/// \param stored  as the database keeps it
std::string shownMoment(long long stored);

/// How updated_at is told: it differs after every change.
std::string changeMoment(long long stored);

} // namespace bridge
