#pragma once

#include "Settings.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace bridge {

/// The command line is not understood; what() says why in one sentence.
class OptionError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The text that `--help` prints.
std::string usage();

/// Reads the arguments after the program's name. None means that help was asked for.
/// \throws OptionError
std::optional<Settings> parseOptions(const std::vector<std::string>& arguments);

} // namespace bridge
