#include "cli/Session.h"

#include "app/SettingsFile.h"
#include "cli/Catalogue.h"
#include "cli/Organize.h"
#include "cli/Terminal.h"
#include "platform/TextFormat.h"
#include "transfer/FileOperationEngine.h"

#include <QEventLoop>

#include <stop_token>

namespace lumeo::cli {
namespace {

std::string planFacts(const PlanningProgress& progress) {
    return "Planning  " + TextFormat::number(progress.plannedCount) + " of " +
           TextFormat::number(progress.totalCount) + " files";
}

} // namespace

Session::Session(const Arguments& arguments, const Environment& environment)
    : arguments_(arguments),
      environment_(environment),
      // This is the window's settings file. The command line overwrites its choices below, so that a script
      // does the same whatever is set in the window. Only the summary of a completed run is written to the
      // file: the window shows the last run, wherever that run was started.
      settings_(openSettings(environment.fileSystem, settingsFile())),
      preferences_(*settings_),
      state_({environment.fileSystem,
              environment.clock,
              volumes_,
              preferences_,
              {desktop_, desktop_, desktop_},
              environment.journals}) {
    state_.setOrganizationPlan(arguments.plan);
    for (const FilePath& source : arguments.sources) {
        state_.addSource(source);
    }
}

void Session::run(QEventLoop& loop, void (AppState::*cancel)()) {
    const std::stop_callback interrupting(environment_.interrupt.token(), [this, &loop, cancel] {
        // The call is queued to the loop, and is dropped when the loop is gone.
        QMetaObject::invokeMethod(
            &loop, [this, cancel] { (state_.*cancel)(); }, Qt::QueuedConnection);
    });
    loop.exec();
}

void Session::scan() {
    QEventLoop loop;
    StatusLine status(environment_.clock, arguments_.quiet);
    QObject::connect(&state_, &AppState::scanProgressChanged, &loop, [this, &status] {
        if (status.isDue()) {
            status.show(scanFacts(state_.scanProgress()), state_.scanProgress().currentItemName);
        }
    });
    QObject::connect(&state_, &AppState::scanFinished, &loop, &QEventLoop::quit);
    state_.startScan();
    run(loop, &AppState::cancelScan);
}

void Session::findDuplicates() {
    QEventLoop loop;
    StatusLine status(environment_.clock, arguments_.quiet);
    status.show("Comparing files of equal size", "");
    state_.runDuplicateDetection();
    if (state_.isDetectingDuplicates()) {
        QObject::connect(&state_, &AppState::isDetectingDuplicatesChanged, &loop, &QEventLoop::quit);
        run(loop, &AppState::stopDuplicateDetection);
    }
}

void Session::plan() {
    QEventLoop loop;
    StatusLine status(environment_.clock, arguments_.quiet);
    QObject::connect(&state_, &AppState::planningProgressChanged, &loop, [this, &status] {
        if (status.isDue()) {
            status.show(planFacts(state_.planningProgress()), "");
        }
    });
    QObject::connect(&state_, &AppState::planningFinished, &loop, &QEventLoop::quit);
    state_.setDestination(*arguments_.plan.destinationURL);
    run(loop, &AppState::cancelPlanning);
}

RunOutcome Session::organize() {
    RunOutcome outcome;
    if (items().empty()) {
        // The state starts no run without files, but a script still gets its journal.
        OperationManifest nothing;
        nothing.id = Uuid::random();
        nothing.timestamp = environment_.clock.now();
        nothing.operationType = rawValue(arguments_.plan.operationMode);
        nothing.sourceRoots = arguments_.sources;
        nothing.destinationRoot = *arguments_.plan.destinationURL;
        nothing.isCancelled = false;
        outcome.journal = std::make_shared<const OperationManifest>(std::move(nothing));
        return outcome;
    }
    QEventLoop loop;
    StatusLine status(environment_.clock, arguments_.quiet);
    QObject::connect(&state_, &AppState::operationProgressChanged, &loop, [this, &status] {
        if (status.isDue()) {
            status.show(runFacts(state_.operationProgress()), state_.operationProgress().currentItemName);
        }
    });
    QObject::connect(&state_, &AppState::operationFinished, &loop,
                     [&](const std::shared_ptr<const OperationManifest>& journal, bool isCancelled) {
                         outcome = {journal, isCancelled};
                         loop.quit();
                     });
    const auto quitUnlessItRuns = [this, &loop] {
        if (!state_.isStartingOperation() && !state_.isProcessing()) {
            loop.quit(); // refused, or interrupted before the start
        }
    };
    QObject::connect(&state_, &AppState::isStartingOperationChanged, &loop, quitUnlessItRuns);
    state_.startOperation();
    run(loop, &AppState::cancelOperation);
    return outcome;
}

} // namespace lumeo::cli
