#pragma once

#include "platform/FilePath.h"

namespace lumeo {

/// Where programs keep what should survive a restart but is of no interest to others: $XDG_STATE_HOME, else
/// ~/.local/state. Empty when the user has no home. It need not exist yet. Any thread may call.
FilePath userStateFolder();

/// Where programs keep what the user has set: $XDG_CONFIG_HOME, else ~/.config. The same otherwise.
FilePath userConfigFolder();

} // namespace lumeo
