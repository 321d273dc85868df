#pragma once

#include <string>

namespace lumeo::cli {

/// The version and, where more is asked for, what the processes that decode media are locked in by here.
std::string versionText(bool isVerbose);

} // namespace lumeo::cli
