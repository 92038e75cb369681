#pragma once

#include "JSONObject.h"

/// Derivations that sessions and administration records have in common.
namespace RecordFields {

/// The server's date and time texts joined by a blank, without an absent one; empty when both are absent.
QString dateTime(const JSONObject& raw);

/// The names of a list of texts or of a list of signers; without either list, the one name that is given.
QList<QString> signerNames(const JSONObject& raw, const QString& singleName);

} // namespace RecordFields
