#pragma once

#include "Http/Router.h"
#include "Operations/Service.h"

#include <span>
#include <string>

namespace bridge {

/// Where every operation of the wire contract lies, but for the token endpoint, the documents and the page at
/// the root.
inline const std::string bridgeBase = "/mobile-bridge/v1";

/// An operation of the contract: what it is asked with, who may ask, and what it does.
struct Route
{
    const char* method;
    std::string path;
    Access access;
    void (*operation)(Service& service, Call& call);
};

using Routes = std::span<const Route>;

/// Signing in, registering, exchanging refresh tokens.
Routes authRoutes();

/// The own profile and password.
Routes profileRoutes();

/// Booking, listing, showing and cancelling sessions, and their messages.
Routes sessionRoutes();

/// A session's documents, and their addresses for a browser.
Routes documentRoutes();

/// What a notary does with sessions, and what the office does with them.
Routes assignmentRoutes();

/// The office's records, accounts and notaries, and the clients of a business.
Routes recordRoutes();
Routes userRoutes();
Routes notaryRoutes();

/// The page at the root, which the client's website button opens.
Routes websiteRoutes();

} // namespace bridge
