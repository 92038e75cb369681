#pragma once

#include <string>

namespace bridge {

/// A one-page PDF file that shows a line of ASCII text.
std::string samplePdf(const std::string& line);

} // namespace bridge
