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

/// Nobody sits in front of a desktop here.
class NoDesktop final : public FolderChooser, public SavePanel, public FileBrowser {
public:
    void choose(const FolderRequest& /*request*/, FolderChooser::Answer answer) override { answer({}); }
    void choose(const SaveRequest& /*request*/, SavePanel::Answer answer) override { answer({}); }
    void reveal(const FilePath& /*folder*/) override {}
};

/// A run that has come back.
struct RunOutcome {
    /// Null when the run was refused, for want of room or as the state tells, or interrupted before it began.
    std::shared_ptr<const OperationManifest> journal;
    bool isCancelled = false;
};

/// The program's state without a window: takes the user's choices from the command line and drives one
/// job after the other, each with a status line. An interrupt cancels the job that runs, or the next
/// one as it starts. Needs an application object; main thread only.
class Session {
public:
    Session(const Arguments& arguments, const Environment& environment);

    [[nodiscard]] const AppState& state() const { return state_; }
    [[nodiscard]] const std::vector<MediaItem>& items() const { return *state_.scannedItems(); }

    void scan();
    void findDuplicates();
    void plan(); ///< a cancelled one leaves the items without places
    RunOutcome organize();

private:
    /// Runs the event loop until somebody quits it; an interrupt calls `cancel` from within.
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
