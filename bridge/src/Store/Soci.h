#pragma once

// Debian's SOCI expects Boost's headers beside it, for exchanging Boost types, which nothing here does.
#include <soci/soci-config.h>
#undef SOCI_HAVE_BOOST
#undef SOCI_HAVE_BOOST_DATE_TIME

#include <soci/soci.h>

#include <functional>

namespace bridge {

/// Takes the rows of a list one by one as they are fetched, until it returns false.
template <typename Record>
using RowSink = std::function<bool(const Record&)>;

} // namespace bridge
