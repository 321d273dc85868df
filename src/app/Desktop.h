#pragma once

#include "platform/FilePath.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace lumeo {

/// What a folder chooser shows.
struct FolderRequest {
    QString prompt;  ///< the text of the button that confirms
    QString message; ///< what the folders are for
    bool allowsSeveral = false;
    bool allowsCreation = false;
};

/// Asks the user for folders. Main thread only.
class FolderChooser {
public:
    /// The folders in the order chosen, or none when the user cancelled. Called once, on the main thread,
    /// before choose() returns or later. Not called when the chooser is destroyed first.
    using Answer = std::function<void(std::vector<FilePath>)>;

    virtual ~FolderChooser() = default;
    virtual void choose(const FolderRequest& request, Answer answer) = 0;
};

/// What a save panel shows.
struct SaveRequest {
    QString defaultName;
    QString prompt; ///< the text of the button that confirms, and the panel's title
    QString suffix; ///< without a dot
};

/// Asks the user where to write a document. Main thread only.
class SavePanel {
public:
    /// Absent when the user cancelled. Called like the answer of FolderChooser.
    using Answer = std::function<void(std::optional<FilePath>)>;

    virtual ~SavePanel() = default;
    virtual void choose(const SaveRequest& request, Answer answer) = 0;
};

/// Shows folders and files in the programs of the desktop. Nothing happens where that is impossible. Main
/// thread only.
class FileBrowser {
public:
    virtual ~FileBrowser() = default;
    virtual void reveal(const FilePath& folder) = 0; ///< opens the folder
    virtual void show(const FilePath& file) = 0;     ///< opens its folder and selects the file there
    virtual void open(const FilePath& file) = 0;     ///< opens the file in its usual program
};

/// What the state and the screens need from the desktop that they run on.
struct Desktop {
    FolderChooser& folderChooser;
    SavePanel& savePanel;
    FileBrowser& fileBrowser;
};

} // namespace lumeo
