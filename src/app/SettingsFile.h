#pragma once

#include "platform/FileSystem.h"

#include <QSettings>

#include <memory>

namespace lumeo {

/// The file of the user's preferences, which the window and the command line share.
FilePath settingsFile();

/// Opens it. What would hold the toolkit up for long is seen to first: the lock that a crash left behind
/// goes, and where something stands that is no file the preferences live only as long as the program.
std::unique_ptr<QSettings> openSettings(FileSystem& fileSystem, const FilePath& file);

} // namespace lumeo
