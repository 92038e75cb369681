#pragma once

#include "WebSession.h"

#include <optional>

/// Why a request must not be sent at all: an address or a header that would put other bytes on the wire than
/// it seems to, or a user's name and password in the address.
/// \returns nothing when the request may be sent
std::optional<TransportError::Code> refusalOf(const Request& request);
