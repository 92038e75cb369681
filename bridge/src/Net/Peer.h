#pragma once

#include <string>

namespace bridge {

/// Whom an address of the network stands for where attempts are counted: an IPv4 address for itself, an IPv6
/// address for the network of 64 bits that one customer is given. Several people behind one address are one.
std::string peerOf(const std::string& address);

} // namespace bridge
