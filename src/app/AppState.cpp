#include "app/AppState.h"

#include "app/Preferences.h"
#include "planning/OutputSize.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace lumeo {
namespace {

/// A folder that does not exist yet has the space of the folder where it will be created.
SourceVolume measured(const FilePath& destination, const AppEnvironment& environment) {
    SourceVolume volume = SourceVolume::measure(Uuid::random(), destination, environment.volumes);
    const FilePath nearest = environment.fileSystem.nearestExisting(destination);
    if (nearest != destination) {
        const SourceVolume around = SourceVolume::measure(volume.id, nearest, environment.volumes);
        volume.volumeRootURL = around.volumeRootURL;
        volume.isVolumeRoot = false;
        volume.isRemovable = around.isRemovable;
        volume.totalCapacityBytes = around.totalCapacityBytes;
        volume.freeSpaceBytes = around.freeSpaceBytes;
        volume.usedSpaceBytes = around.usedSpaceBytes;
    }
    return volume;
}

} // namespace

AppState::AppState(const AppEnvironment& environment, QObject* parent)
    : QObject(parent), environment_(environment), organizationPlan_(environment.preferences.newPlan()) {
    connect(&environment.preferences, &Preferences::defaultOperationChanged, this,
            &AppState::followPreferences);
    connect(&environment.preferences, &Preferences::verifyTransfersChanged, this,
            &AppState::followPreferences);
    readRecentRuns();
    // Unlike the other settings this one has no place in the plan's own screen, so it takes effect at once.
    connect(&environment.preferences, &Preferences::listsChecksumsChanged, this, [this] {
        OrganizationPlan plan = organizationPlan_;
        plan.listsChecksums = environment_.preferences.listsChecksums();
        change(organizationPlan_, std::move(plan), &AppState::organizationPlanChanged);
    });
}

AppState::~AppState() = default;

std::int64_t AppState::totalFilesCount() const {
    return static_cast<std::int64_t>(scannedItems_->size());
}

std::optional<LastOperationSummary> AppState::lastOperationSummary() const {
    return environment_.preferences.lastOperationSummary();
}

std::int64_t AppState::requiredOutputSizeBytes() const {
    return lumeo::requiredOutputSizeBytes(*scannedItems_, organizationPlan_.duplicatePolicy);
}

bool AppState::canProceedToNextStep() const {
    switch (currentStep_) {
    case WizardStep::sources:
        return !sources_.empty();
    case WizardStep::scanResults:
        return !scannedItems_->empty();
    case WizardStep::processing:
        return false;
    case WizardStep::organization:
    case WizardStep::preview:
    case WizardStep::report:
        break;
    }
    return true;
}

void AppState::proceedToNextStep() {
    if (!canProceedToNextStep()) {
        return;
    }
    complete({currentStep_});
    if (currentStep_ != WizardStep::report) {
        goTo(static_cast<WizardStep>(static_cast<int>(currentStep_) + 1));
    }
}

bool AppState::isReachable(WizardStep step) const {
    const bool isBehind = step <= currentStep_ || completedSteps_.contains(step);
    switch (step) {
    case WizardStep::scanResults:
        return isBehind || isScanning_;
    case WizardStep::processing:
        return step == currentStep_ || isProcessing_ || (isBehind && activeManifest_);
    case WizardStep::report:
        return step == currentStep_ || (isBehind && activeManifest_);
    case WizardStep::sources:
    case WizardStep::organization:
    case WizardStep::preview:
        break;
    }
    return isBehind;
}

void AppState::navigateToStep(WizardStep target) {
    if (!isReachable(target)) {
        return;
    }
    if (target != currentStep_) {
        takeStartBack();
    }
    if (target == WizardStep::preview && !isPlanCurrent_ && !isPlanning()) {
        startPlanning();
    }
    goTo(target);
}

void AppState::goTo(WizardStep step) {
    if (step == WizardStep::sources && step != currentStep_) {
        lookAtSources();
    }
    change(currentStep_, step, &AppState::currentStepChanged);
}

void AppState::complete(std::initializer_list<WizardStep> steps) {
    std::set<WizardStep> completed = completedSteps_;
    completed.insert(steps);
    change(completedSteps_, std::move(completed), &AppState::completedStepsChanged);
}

void AppState::promptAddFolderPanel() {
    promptFolders({.prompt = QStringLiteral("Select"),
                   .message = QStringLiteral("Choose photo & video folders or external drives to organize"),
                   .allowsSeveral = true},
                  [this](const std::vector<FilePath>& folders) {
                      for (const FilePath& folder : folders) {
                          addSource(folder);
                      }
                  });
}

void AppState::promptDestinationFolderPanel() {
    promptFolders({.prompt = QStringLiteral("Select Destination"),
                   .message = QStringLiteral("Choose destination directory for your organized media archive"),
                   .allowsCreation = true},
                  [this](const std::vector<FilePath>& folders) {
                      if (!folders.empty()) {
                          setDestination(folders.front());
                      }
                  });
}

void AppState::promptFolders(const FolderRequest& request, FolderChooser::Answer answer) {
    if (isSelectingFolder_) {
        return;
    }
    change(isSelectingFolder_, true, &AppState::isSelectingFolderChanged);
    environment_.desktop.folderChooser.choose(
        request, [state = QPointer(this), answer = std::move(answer)](std::vector<FilePath> folders) {
            if (state) {
                state->change(state->isSelectingFolder_, false, &AppState::isSelectingFolderChanged);
                answer(std::move(folders));
            }
        });
}

void AppState::addSource(const FilePath& url) {
    const FilePath standardized = FilePath::standardized(url.bytes());
    if (std::ranges::find(sources_, standardized, &SourceVolume::url) != sources_.end()) {
        return;
    }
    sources_.push_back(SourceVolume::unmeasured(Uuid::random(), standardized));
    emit sourcesChanged();
    lookAtSources();
    jobs_.start(
        [this, id = sources_.back().id, standardized](const std::stop_token& /*stop*/) {
            return SourceVolume::measure(id, standardized, environment_.volumes);
        },
        [this](SourceVolume measured) {
            const auto place = std::ranges::find(sources_, measured.id, &SourceVolume::id);
            if (place != sources_.end()) {
                *place = std::move(measured);
                emit sourcesChanged();
            }
        });
}

SourcePresence AppState::presence(const Uuid& source) const {
    const auto found = presence_.find(source);
    return found != presence_.end() ? found->second : SourcePresence::unknown;
}

void AppState::lookAtSources() {
    using Seen = std::map<Uuid, SourcePresence>;
    looking_.start(
        [this, sources = sources_](const std::stop_token& /*stop*/) {
            Seen seen;
            for (const SourceVolume& source : sources) {
                const FileResult<FileStatus> found = environment_.fileSystem.targetStatus(source.url);
                seen[source.id] = !found                             ? SourcePresence::gone
                                  : found->kind == FileKind::regular ? SourcePresence::file
                                                                     : SourcePresence::folder;
            }
            return seen;
        },
        [this](Seen seen) { change(presence_, std::move(seen), &AppState::sourcesChanged); });
}

void AppState::removeSource(const Uuid& id) {
    if (std::erase_if(sources_, [&id](const SourceVolume& source) { return source.id == id; }) > 0) {
        emit sourcesChanged();
    }
}

void AppState::clearSources() {
    change(sources_, {}, &AppState::sourcesChanged);
}

void AppState::setDestination(const FilePath& url) {
    if (isChangingFiles()) {
        return;
    }
    organizationPlan_.destinationURL = FilePath::standardized(url.bytes());
    destinationVolume_ = SourceVolume::unmeasured(Uuid::random(), *organizationPlan_.destinationURL);
    emit organizationPlanChanged();
    emit destinationVolumeChanged();
    destinationDevice_.reset();
    measureDestination([this](const MeasuredDestination& chosen) { destinationDevice_ = chosen.device; });
    change(runRefusal_, {}, &AppState::runRefusalChanged);
    takeStartBack();
    isPlanCurrent_ = false;
    startPlanning();
}

void AppState::measureDestination(std::function<void(const MeasuredDestination&)> next) {
    measurement_.start(
        [this, folder = *organizationPlan_.destinationURL](const std::stop_token& /*stop*/) {
            return MeasuredDestination{measured(folder, environment_),
                                       deviceUnder(environment_.fileSystem, folder)};
        },
        [this, next = std::move(next)](const MeasuredDestination& found) {
            destinationVolume_ = found.volume;
            emit destinationVolumeChanged();
            next(found);
        });
}

/// The fields of the plan that the user has not chosen follow the preferences.
void AppState::followPreferences() {
    OrganizationPlan plan = organizationPlan_;
    const OrganizationPlan preset = environment_.preferences.newPlan();
    plan.operationMode = isModeChosen_ ? plan.operationMode : preset.operationMode;
    plan.verifyTransfers = isVerifyChosen_ ? plan.verifyTransfers : preset.verifyTransfers;
    const auto chosen = std::pair(isModeChosen_, isVerifyChosen_);
    setOrganizationPlan(std::move(plan));
    std::tie(isModeChosen_, isVerifyChosen_) = chosen;
}

void AppState::setOrganizationPlan(OrganizationPlan plan) {
    plan.destinationURL = organizationPlan_.destinationURL;
    if (plan == organizationPlan_ || isChangingFiles()) {
        return;
    }
    isModeChosen_ = isModeChosen_ || plan.operationMode != organizationPlan_.operationMode;
    isVerifyChosen_ = isVerifyChosen_ || plan.verifyTransfers != organizationPlan_.verifyTransfers;
    const OrganizationPlan before = std::exchange(organizationPlan_, std::move(plan));
    takeStartBack();
    emit organizationPlanChanged();
    isPlanCurrent_ = false;
    if (before.unknownDatePolicy != organizationPlan_.unknownDatePolicy) {
        reviseItems();
    } else if (before.preset != organizationPlan_.preset) {
        startPlanning();
    } else {
        outdatePlan();
    }
}

void AppState::previewChanges() {
    if (currentStep_ != WizardStep::organization || !organizationPlan_.destinationURL) {
        return;
    }
    startPlanning();
    proceedToNextStep();
}

void AppState::replaceItems(std::vector<MediaItem> items) {
    scannedItems_ = std::make_shared<const std::vector<MediaItem>>(std::move(items));
    emit scannedItemsChanged();
}

void AppState::replaceCatalogue(std::vector<MediaItem> items) {
    cancelPlanning();
    takeStartBack();
    detection_.drop();
    isAnalyzed_ = false;
    emit isDetectingDuplicatesChanged();
    isPlanCurrent_ = false;
    replaceItems(std::move(items));
}

void AppState::goBackToTheStart() {
    cancelScan();
    scan_.drop(); // a cancelled scan would still return a part of a catalogue, which is not wanted any more
    goTo(WizardStep::sources);
    change(completedSteps_, {}, &AppState::completedStepsChanged);
    change(runRefusal_, {}, &AppState::runRefusalChanged);
    undoRefusal_.clear();
    change(undoResult_, {}, &AppState::undoResultChanged);
    replaceCatalogue({});
}

void AppState::finishCompletedOperation() {
    if (isChangingFiles()) {
        return;
    }
    operationPause_ = nullptr;
    goBackToTheStart();
    change(operationProgress_, {}, &AppState::operationProgressChanged);
    isModeChosen_ = false;
    isVerifyChosen_ = false;
    change(organizationPlan_, environment_.preferences.newPlan(), &AppState::organizationPlanChanged);
    measurement_.drop();
    change(destinationVolume_, {}, &AppState::destinationVolumeChanged);
    change(selectedFilter_, QStringLiteral("all"), &AppState::selectedFilterChanged);
}

void AppState::restartWorkflow() {
    if (!isChangingFiles()) {
        goBackToTheStart();
    }
}

} // namespace lumeo
