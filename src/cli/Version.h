#pragma once

#include <string>

namespace lumeo::cli {

/// The version. With `isVerbose` it also tells which means of this system confine the processes that decode
/// media.
std::string versionText(bool isVerbose);

} // namespace lumeo::cli
