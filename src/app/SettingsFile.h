#pragma once

#include "platform/FileSystem.h"

#include <QSettings>

#include <memory>

namespace lumeo {

/// The file of the user's preferences. The window and the command line share it.
FilePath settingsFile();

/// Opens the file, after removing what would make Qt wait for long. A lock that a crash left behind is
/// deleted. If the path is not a file, the preferences live only as long as the program.
std::unique_ptr<QSettings> openSettings(FileSystem& fileSystem, const FilePath& file);

} // namespace lumeo
