#pragma once

#include "Http/Router.h"
#include "Operations/Service.h"

namespace bridge {

/// Where every operation of the wire contract lies, but for the token endpoint, the documents and the page at
/// the root.
inline const std::string bridgeBase = "/mobile-bridge/v1";

/// Signing in, registering, exchanging refresh tokens.
void addAuthOperations(Router& router, Service& service);

/// The own profile and password.
void addProfileOperations(Router& router, Service& service);

/// Booking, listing, showing and cancelling sessions, and their messages.
void addSessionOperations(Router& router, Service& service);

/// A session's documents, and their addresses for a browser.
void addDocumentOperations(Router& router, Service& service);

/// What a notary does with sessions, and what the office does with them.
void addAssignmentOperations(Router& router, Service& service);

/// The office's records, accounts and notaries, and the clients of a business.
void addRecordOperations(Router& router, Service& service);
void addUserOperations(Router& router, Service& service);
void addNotaryOperations(Router& router, Service& service);

/// The page at the root, which the client's website button opens.
void addWebsite(Router& router);

} // namespace bridge
