#pragma once

#include "Operations/Service.h"

#include <string>

namespace bridge {

/// Fills an empty database with people of every role, sessions in every status, walk-in records, open calls,
/// messages and documents; leaves any other database alone. All of it follows from the moment of filling.
void fillWithDemoData(Service& service);

/// Who can sign in, with role and the common password, a line each.
std::string demoAccountList();

} // namespace bridge
