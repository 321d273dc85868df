#pragma once

#include "app/AppState.h"
#include "app/Preferences.h"
#include "cli/Arguments.h"
#include "cli/Commands.h"
#include "platform/Volumes.h"

#include <QSettings>

#include <memory>

class QEventLoop;

namespace lumeo::cli {

/// Answers every question of the desktop with nothing, because nobody sits in front of one.
class NoDesktop final : public FolderChooser, public SavePanel, public FileBrowser {
public:
    void choose(const FolderRequest& /*request*/, FolderChooser::Answer answer) override { answer({}); }
    void choose(const SaveRequest& /*request*/, SavePanel::Answer answer) override { answer({}); }
    void reveal(const FilePath& /*folder*/) override {}
    void show(const FilePath& /*file*/) override {}
    void open(const FilePath& /*file*/) override {}
};

/// A finished run.
struct RunOutcome {
    /// Null when the run was refused or was interrupted before the start. The state tells why it was refused.
    std::shared_ptr<const OperationManifest> journal;
    bool isCancelled = false;
};

/// The program's state without a window. It takes the user's choices from the command line and runs one job
/// after the other, each with a status line. An interrupt cancels the current job, or the next one when it
/// starts. Needs an application object. Main thread only.
class Session {
public:
    Session(const Arguments& arguments, const Environment& environment);

    [[nodiscard]] const AppState& state() const { return state_; }
    [[nodiscard]] const std::vector<MediaItem>& items() const { return *state_.scannedItems(); }

    void scan();
    void findDuplicates();
    void plan(); ///< after a cancelled one the items have no destinations
    RunOutcome organize();

private:
    /// Runs the event loop until it is quit. An interrupt calls `cancel` from inside the loop.
    void run(QEventLoop& loop, void (AppState::*cancel)());

    const Arguments& arguments_;
    const Environment& environment_;
    SystemVolumes volumes_;
    std::unique_ptr<QSettings> settings_;
    Preferences preferences_;
    NoDesktop desktop_;
    AppState state_;
};

} // namespace lumeo::cli
