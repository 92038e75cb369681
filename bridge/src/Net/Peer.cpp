#include "Net/Peer.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>

namespace bridge {

static std::string textOf(int family, const void* address)
{
    std::array<char, INET6_ADDRSTRLEN> text{};
    return ::inet_ntop(family, address, text.data(), text.size()) ? text.data() : std::string();
}

std::string peerOf(const std::string& address)
{
    in6_addr bytes{};
    if (::inet_pton(AF_INET6, address.c_str(), &bytes) != 1)
        return address;
    if (IN6_IS_ADDR_V4MAPPED(&bytes))
        return textOf(AF_INET, bytes.s6_addr + 12);
    std::fill(bytes.s6_addr + 8, bytes.s6_addr + 16, 0);
    return textOf(AF_INET6, &bytes) + "/64";
}

} // namespace bridge
