#pragma once

#include "platform/FilePath.h"

namespace lumeo {

/// The folder for data that should survive a restart but that users do not need to see: $XDG_STATE_HOME, else
/// ~/.local/state. Empty when the user has no home. It may not exist yet. Any thread may call.
FilePath userStateFolder();

/// The folder for settings: $XDG_CONFIG_HOME, else ~/.config. Otherwise as userStateFolder().
FilePath userConfigFolder();

} // namespace lumeo
