#pragma once

namespace bridge {

/// The number of a row; 0 stands for none.
using Id = long long;

} // namespace bridge
