#pragma once

// Debian's SOCI expects Boost's headers beside it, for exchanging Boost types, which nothing here does.
#include <soci/soci-config.h>
#undef SOCI_HAVE_BOOST
#undef SOCI_HAVE_BOOST_DATE_TIME

#include <soci/soci.h>
