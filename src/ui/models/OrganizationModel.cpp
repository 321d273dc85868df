#include "ui/models/OrganizationModel.h"

#include "app/AppState.h"
#include "l10n/LocalizationManager.h"
#include "planning/DestinationPlanner.h"
#include "planning/PathTemplateEngine.h"
#include "ui/models/ShownText.h"

#include <QRegularExpression>

#include <algorithm>

namespace lumeo {
namespace {

template<class Value>
Value caseAt(int index) {
    constexpr auto cases = allCases<Value>();
    return cases.at(static_cast<std::size_t>(std::clamp(index, 0, static_cast<int>(cases.size()) - 1)));
}

template<class Value>
int indexOf(Value value) {
    constexpr auto cases = allCases<Value>();
    return static_cast<int>(std::ranges::find(cases, value) - cases.begin());
}

template<class Value>
QStringList textsOf(std::string_view (*textOf)(Value)) {
    QStringList texts;
    for (const auto value : allCases<Value>()) {
        texts.append(shownEnglish(textOf(value)));
    }
    return texts;
}

} // namespace

OrganizationModel::OrganizationModel(AppState& state, const LocalizationManager& localization,
                                     QObject* parent)
    : QObject(parent), state_(state), localization_(localization) {
    connect(&state_, &AppState::organizationPlanChanged, this, &OrganizationModel::showPlan);
    connect(&state_, &AppState::scannedItemsChanged, this, &OrganizationModel::showItems);
    connect(&state_, &AppState::currentStepChanged, this, &OrganizationModel::showItems);
    connect(&state_, &AppState::destinationVolumeChanged, this, &OrganizationModel::showDestination);
    connect(this, &OrganizationModel::destinationChanged, this, &OrganizationModel::canEditChanged);
    connect(&state_, &AppState::isProcessingChanged, this, &OrganizationModel::canEditChanged);
    connect(&state_, &AppState::isUndoingChanged, this, &OrganizationModel::canEditChanged);
    connect(&state_, &AppState::isDetectingDuplicatesChanged, this, &OrganizationModel::analysisChanged);
    connect(&state_, &AppState::scannedItemsChanged, this, &OrganizationModel::analysisChanged);
    connect(&state_, &AppState::isPlanningChanged, this, &OrganizationModel::planningChanged);
    connect(&state_, &AppState::planningProgressChanged, this, &OrganizationModel::planningChanged);
    connect(&localization_, &LocalizationManager::currentLanguageChanged, this, [this] {
        emit languageChanged();
        showDestination();
    });
    showDestination();
    showItems();
}

QStringList OrganizationModel::presetExamples() const {
    return textsOf<OrganizationPreset>(subtitle);
}

QStringList OrganizationModel::unknownDatePolicies() const {
    return textsOf<UnknownDatePolicy>(displayName);
}

QStringList OrganizationModel::duplicatePolicies() const {
    return textsOf<DuplicatePolicy>(displayName);
}

int OrganizationModel::preset() const {
    return indexOf(state_.organizationPlan().preset);
}

void OrganizationModel::setPreset(int preset) {
    edit([&](OrganizationPlan& plan) { plan.preset = caseAt<OrganizationPreset>(preset); });
}

bool OrganizationModel::isCustom() const {
    return state_.organizationPlan().preset == OrganizationPreset::custom;
}

QString OrganizationModel::customTemplate() const {
    return shownText(state_.organizationPlan().customTemplate);
}

void OrganizationModel::setCustomTemplate(const QString& text) {
    edit([&](OrganizationPlan& plan) { plan.customTemplate = text.toStdString(); });
}

QString OrganizationModel::tagsLabel() const {
    const auto hint = localization_.localized(QStringLiteral("org.availableTags"));
    return hint.left(hint.indexOf(QLatin1Char('{'))).trimmed();
}

QStringList OrganizationModel::tags() const {
    static const QRegularExpression tag(QStringLiteral("\\{\\w+\\}"));
    QStringList tags;
    auto matches = tag.globalMatch(localization_.localized(QStringLiteral("org.availableTags")));
    while (matches.hasNext()) {
        tags.append(matches.next().captured());
    }
    return tags;
}

bool OrganizationModel::isMove() const {
    return state_.organizationPlan().operationMode == OperationMode::move;
}

void OrganizationModel::setMove(bool isMove) {
    edit([&](OrganizationPlan& plan) {
        plan.operationMode = isMove ? OperationMode::move : OperationMode::copy;
    });
}

int OrganizationModel::unknownDatePolicy() const {
    return indexOf(state_.organizationPlan().unknownDatePolicy);
}

void OrganizationModel::setUnknownDatePolicy(int policy) {
    edit([&](OrganizationPlan& plan) { plan.unknownDatePolicy = caseAt<UnknownDatePolicy>(policy); });
}

int OrganizationModel::duplicatePolicy() const {
    return indexOf(state_.organizationPlan().duplicatePolicy);
}

void OrganizationModel::setDuplicatePolicy(int policy) {
    edit([&](OrganizationPlan& plan) { plan.duplicatePolicy = caseAt<DuplicatePolicy>(policy); });
}

bool OrganizationModel::verifyTransfers() const {
    return state_.organizationPlan().verifyTransfers;
}

void OrganizationModel::setVerifyTransfers(bool verify) {
    edit([&](OrganizationPlan& plan) { plan.verifyTransfers = verify; });
}

bool OrganizationModel::isPlanning() const {
    return state_.isPlanning();
}

double OrganizationModel::plannedShare() const {
    const auto& progress = state_.planningProgress();
    return progress.totalCount > 0
               ? static_cast<double>(progress.plannedCount) / static_cast<double>(progress.totalCount)
               : 0;
}

QString OrganizationModel::patternProblem() const {
    static const QRegularExpression braces(QStringLiteral("\\{[^{}/]*\\}?|\\}"));
    const QStringList known = tags();
    auto matches = braces.globalMatch(customTemplate());
    while (matches.hasNext()) {
        const QString found = matches.next().captured();
        if (!known.contains(found)) {
            return QStringLiteral("%1 is no tag: it becomes part of the folder's name as it stands.")
                .arg(found);
        }
    }
    return {};
}

bool OrganizationModel::isAnalyzed() const {
    return state_.isAnalyzed() || state_.scannedItems()->empty();
}

bool OrganizationModel::isAnalyzing() const {
    return state_.isDetectingDuplicates();
}

void OrganizationModel::analyzeDuplicates() {
    state_.runDuplicateDetection();
}

bool OrganizationModel::canEdit() const {
    return !state_.isChangingFiles();
}

void OrganizationModel::chooseDestination() {
    state_.promptDestinationFolderPanel();
}

void OrganizationModel::goBack() {
    state_.navigateToStep(WizardStep::scanResults);
}

void OrganizationModel::previewChanges() {
    state_.previewChanges();
}

void OrganizationModel::edit(const std::function<void(OrganizationPlan&)>& change) {
    auto plan = state_.organizationPlan();
    change(plan);
    state_.setOrganizationPlan(std::move(plan));
}

void OrganizationModel::showPlan() {
    if (state_.organizationPlan().duplicatePolicy != estimatedUnder_) {
        estimate();
    }
    showExample();
    emit planChanged();
}

/// This goes through the whole catalogue, so it only runs while the screen is shown.
void OrganizationModel::showItems() {
    if (state_.currentStep() != WizardStep::organization) {
        return;
    }
    const auto& items = *state_.scannedItems();
    // A file without a date would not show the effect of the pattern.
    const auto dated =
        std::ranges::find_if(items, [](const MediaItem& item) { return item.resolvedDate.hasValue(); });
    exampleItem_.reset();
    if (!items.empty()) {
        exampleItem_ = dated != items.end() ? *dated : items.front();
    }
    estimate();
    showExample();
}

void OrganizationModel::estimate() {
    estimatedUnder_ = state_.organizationPlan().duplicatePolicy;
    estimatedBytes_ = state_.requiredOutputSizeBytes();
    showDestination();
}

void OrganizationModel::showDestination() {
    destination_ = DestinationTexts::of(state_.destinationVolume(), estimatedBytes_, localization_);
    emit destinationChanged();
}

void OrganizationModel::showExample() {
    exampleBefore_.clear();
    exampleAfter_.clear();
    if (exampleItem_) {
        const auto folder = PathTemplateEngine::renderRelativePath(*exampleItem_, OrganizationPreset::custom,
                                                                   state_.organizationPlan().customTemplate,
                                                                   DestinationPlanner::unknownDateFolder);
        exampleBefore_ = shownText(exampleItem_->fileName());
        exampleAfter_ = shownPath(FilePath(folder).appending(exampleItem_->fileName()));
    }
    emit exampleChanged();
}

} // namespace lumeo
