#include "ui/models/PreviewModel.h"

#include "app/AppState.h"
#include "app/Preferences.h"
#include "l10n/LocalizationManager.h"
#include "ui/models/MediaItemTexts.h"
#include "ui/models/RunTexts.h"
#include "ui/models/ShownText.h"

#include <QLocale>
#include <QVariantMap>

#include <algorithm>

namespace lumeo {
namespace {

QString name(PreviewFilter filter) {
    const std::string_view raw = rawValue(filter);
    return QString::fromLatin1(raw.data(), static_cast<qsizetype>(raw.size()));
}

QString titleKey(PreviewFilter filter) {
    return QStringLiteral("preview.filter.") + name(filter);
}

QVariantMap chip(const QString& text, const char* tint) {
    return {{QStringLiteral("text"), text}, {QStringLiteral("tint"), QLatin1String(tint)}};
}

/// Stands for an empty catalogue while another screen is shown.
AppState::Items noItems() {
    static const auto none = std::make_shared<const std::vector<MediaItem>>();
    return none;
}

} // namespace

PreviewModel::PreviewModel(AppState& state, const LocalizationManager& texts, ThumbnailService& thumbnails,
                           FileBrowser& fileBrowser, Preferences& preferences, QObject* parent)
    : QObject(parent),
      state_(state),
      preferences_(preferences),
      texts_(texts),
      inspector_(thumbnails, fileBrowser),
      selectedFilter_(name({})) {
    connect(&state, &AppState::currentStepChanged, this, &PreviewModel::beginAnew);
    connect(&state, &AppState::scannedItemsChanged, this, &PreviewModel::takeItems);
    connect(&state, &AppState::organizationPlanChanged, this, [this] {
        emit planChanged();
        emit textsChanged();
        emit readinessChanged();
        emit outcomeChanged();
    });
    connect(&state, &AppState::isPlanningChanged, this, &PreviewModel::readinessChanged);
    connect(&state, &AppState::planningProgressChanged, this, &PreviewModel::planningProgressChanged);
    connect(&state, &AppState::isProcessingChanged, this, &PreviewModel::readinessChanged);
    connect(&state, &AppState::isUndoingChanged, this, &PreviewModel::readinessChanged);
    connect(&state, &AppState::isStartingOperationChanged, this, &PreviewModel::readinessChanged);
    connect(&state, &AppState::isProcessingChanged, this, &PreviewModel::outcomeChanged);
    connect(&state, &AppState::operationProgressChanged, this, &PreviewModel::outcomeChanged);
    connect(&state, &AppState::destinationVolumeChanged, this, &PreviewModel::outcomeChanged);
    connect(&state, &AppState::runRefusalChanged, this, &PreviewModel::outcomeChanged);
    connect(&state, &AppState::isDetectingDuplicatesChanged, this, &PreviewModel::analysisChanged);
    connect(&state, &AppState::isDetectingDuplicatesChanged, this, &PreviewModel::textsChanged);
    connect(&state, &AppState::scannedItemsChanged, this, &PreviewModel::analysisChanged);
    connect(&texts, &LocalizationManager::currentLanguageChanged, this, &PreviewModel::textsChanged);
    connect(&rows_, &PreviewRows::countChanged, this, &PreviewModel::listedChanged);
    connect(&inspector_, &InspectorModel::itemChanged, this, &PreviewModel::currentRowChanged);
    beginAnew();
}

void PreviewModel::beginAnew() {
    setShowMoveConfirmation(false);
    inspector_.close();
    rows_.setItems(noItems()); // clearing the search and the filter then costs nothing
    setSearchText({});
    setSelectedFilter(name(PreviewFilter::all));
    takeItems();
}

void PreviewModel::takeItems() {
    rows_.setItems(state_.currentStep() == WizardStep::preview ? state_.scannedItems() : noItems());
    counts_ = PreviewCounts(rows_.items());
    followInspectedItem();
    emit textsChanged();
    emit readinessChanged();
}

void PreviewModel::followInspectedItem() {
    if (!inspector_.isOpen()) {
        return;
    }
    const auto& items = rows_.items();
    if (inspectedIndex_ < items.size() && items[inspectedIndex_].id == inspector_.item()->id) {
        inspector_.open(items[inspectedIndex_], twins());
    } else {
        inspector_.close();
    }
}

QVariantList PreviewModel::twins() const {
    const auto& group = rows_.items()[inspectedIndex_].exactDuplicateGroupID;
    if (!group) {
        return {};
    }
    const bool isFirstOnly = state_.organizationPlan().duplicatePolicy == DuplicatePolicy::skipDuplicates;
    QVariantList list;
    for (const MediaItem& item : rows_.items()) {
        if (item.exactDuplicateGroupID == group) {
            const bool stays = list.isEmpty() || !isFirstOnly;
            const QString place =
                stays ? QStringLiteral("\n→ ") + destinationText(item.plannedDestinationURL) : QString();
            list.append(QVariantMap{{QStringLiteral("label"), stays ? QStringLiteral("Goes into the archive")
                                                                    : QStringLiteral("Skipped")},
                                    {QStringLiteral("value"), shownPath(item.sourceURL) + place},
                                    {QStringLiteral("isPath"), true}});
        }
    }
    return list;
}

void PreviewModel::setSearchText(const QString& text) {
    if (text == searchText_) {
        return;
    }
    searchText_ = text;
    rows_.setSearch(text);
    emit searchTextChanged();
    emit currentRowChanged();
}

void PreviewModel::setSelectedFilter(const QString& filter) {
    if (filter == selectedFilter_) {
        return;
    }
    selectedFilter_ = filter;
    rows_.setFilter(fromRawValue<PreviewFilter>(filter.toStdString()).value_or(PreviewFilter::all));
    emit selectedFilterChanged();
    emit currentRowChanged();
}

QVariantList PreviewModel::filters() const {
    QVariantList list;
    for (const PreviewFilter filter : allCases<PreviewFilter>()) {
        list.append(QVariantMap{{QStringLiteral("name"), name(filter)},
                                {QStringLiteral("text"), texts_.localized(titleKey(filter))},
                                {QStringLiteral("count"), filter == PreviewFilter::duplicates && !isAnalyzed()
                                                              ? QString(notKnown)
                                                              : shownNumber(counts_.of(filter))}});
    }
    return list;
}

QVariantList PreviewModel::chips() const {
    const QLocale language(languageCode(texts_.currentLanguage()));
    QVariantList list{chip(shownNumber(counts_.of(PreviewFilter::all)) +
                               (isMove() ? QStringLiteral(" to move") : QStringLiteral(" to copy")),
                           "blue")};
    const auto appendIfAny = [&](PreviewFilter filter, const char* tint) {
        if (counts_.of(filter) > 0) {
            list.append(chip(shownNumber(counts_.of(filter)) + QLatin1Char(' ') +
                                 language.toLower(texts_.localized(titleKey(filter))),
                             tint));
        }
    };
    appendIfAny(PreviewFilter::duplicates, "red");
    appendIfAny(PreviewFilter::unknownDate, "yellow");
    return list;
}

QString PreviewModel::listed() const {
    const auto all = static_cast<std::int64_t>(rows_.items().size());
    return rows_.count() == all ? QString()
                                : QStringLiteral("%1 / %2").arg(shownNumber(rows_.count()), shownNumber(all));
}

int PreviewModel::currentRow() const {
    return inspector_.isOpen() ? rows_.rowOf(inspectedIndex_).value_or(-1) : -1;
}

QList<int> PreviewModel::columnWidths() const {
    return preferences_.columnWidths();
}

void PreviewModel::setColumnWidths(const QList<int>& widths) {
    preferences_.setColumnWidths(widths);
    emit columnWidthsChanged();
}

bool PreviewModel::isMove() const {
    return state_.organizationPlan().operationMode == OperationMode::move;
}

bool PreviewModel::canStart() const {
    return missing().isEmpty();
}

QString PreviewModel::missing() const {
    if (rows_.items().empty()) {
        return QStringLiteral("There is nothing to organize.");
    }
    if (!state_.organizationPlan().destinationURL) {
        return QStringLiteral("Choose a destination first.");
    }
    if (state_.isUndoing()) {
        return QStringLiteral("A run is being taken back; wait for its end.");
    }
    if (state_.isProcessing()) {
        return QStringLiteral("A run is under way.");
    }
    if (state_.isPlanning()) {
        return QStringLiteral("The destinations are being planned.");
    }
    return starting();
}

QString PreviewModel::starting() const {
    return state_.isStartingOperation() && !state_.isPlanning()
               ? QStringLiteral("Looking at the destination. A drive that was asleep takes a moment.")
               : QString();
}

bool PreviewModel::isAnalyzed() const {
    return state_.isAnalyzed() || state_.scannedItems()->empty();
}

bool PreviewModel::isAnalyzing() const {
    return state_.isDetectingDuplicates();
}

QString PreviewModel::analysis() const {
    return isAnalyzing() ? QStringLiteral("Duplicates are being looked for. A start now would organize every "
                                          "file, also those that turn out to be there twice.")
                         : QString();
}

void PreviewModel::setShowMoveConfirmation(bool show) {
    if (show != showMoveConfirmation_) {
        showMoveConfirmation_ = show;
        emit showMoveConfirmationChanged();
    }
}

bool PreviewModel::isPlanning() const {
    return state_.isPlanning();
}

double PreviewModel::planningFraction() const {
    const PlanningProgress& progress = state_.planningProgress();
    return progress.totalCount > 0
               ? static_cast<double>(progress.plannedCount) / static_cast<double>(progress.totalCount)
               : 0;
}

QString PreviewModel::planningText() const {
    const PlanningProgress& progress = state_.planningProgress();
    return QStringLiteral("Planning destinations: %1 / %2")
        .arg(shownNumber(progress.plannedCount), shownNumber(progress.totalCount));
}

QString PreviewModel::refusal() const {
    if (state_.runRefusal()) {
        return asSentence(state_.runRefusal()->sentence);
    }
    OperationProgress refused;
    refused.errorsCount = 1;
    const auto& volume = state_.destinationVolume();
    if (state_.isProcessing() || state_.operationProgress() != refused || !volume ||
        !volume->freeSpaceBytes) {
        return {};
    }
    const std::int64_t needed = state_.requiredOutputSizeBytes();
    const std::int64_t free = *volume->freeSpaceBytes;
    if (needed < free) {
        return {}; // there is enough space by now, or the plan has changed
    }
    // A run is refused even if it would just fill the disk, so one more byte is missing.
    const std::int64_t missing = needed - free + 1;
    return QStringLiteral("Not enough space on %1: %2 needed, %3 free, %4 missing. Make room there or choose "
                          "another destination.")
        .arg(shownText(volume->name), shownByteCount(needed), shownByteCount(free), shownByteCount(missing));
}

QString PreviewModel::cancellation() const {
    const OperationProgress& progress = state_.operationProgress();
    if (!progress.isCancelled || state_.isProcessing()) {
        return {};
    }
    return QStringLiteral("The operation was cancelled: %1 of %2 files were transferred and verified, and "
                          "stay at the destination.")
        .arg(shownNumber(progress.verifiedCount), shownNumber(progress.totalFiles));
}

void PreviewModel::inspect(int row) {
    if (rows_.count() == 0) {
        return;
    }
    inspectedIndex_ = rows_.itemIndex(std::clamp(row, 0, rows_.count() - 1));
    inspector_.open(rows_.items()[inspectedIndex_], twins());
}

void PreviewModel::seek(const QString& beginning) {
    const int current = std::max(currentRow(), 0);
    // The first letter moves on to the next matching row. More letters narrow the search from the current
    // row.
    const int first = beginning.size() > 1 || currentRow() < 0 ? current : current + 1;
    for (int step = 0; step < rows_.count(); ++step) {
        const int row = (first + step) % rows_.count();
        const MediaItem& item = rows_.items()[rows_.itemIndex(row)];
        if (shownText(item.fileName()).startsWith(beginning, Qt::CaseInsensitive)) {
            inspect(row);
            return;
        }
    }
}

void PreviewModel::back() {
    state_.navigateToStep(WizardStep::organization);
}

void PreviewModel::start() {
    if (!canStart()) {
        return;
    }
    if (isMove()) {
        setShowMoveConfirmation(true);
    } else {
        state_.startOperation();
    }
}

void PreviewModel::analyzeDuplicates() {
    state_.runDuplicateDetection();
}

void PreviewModel::cancelStart() {
    state_.cancelOperation();
}

void PreviewModel::confirmMove() {
    const bool isConfirmed = showMoveConfirmation_ && canStart();
    setShowMoveConfirmation(false);
    if (isConfirmed) {
        state_.startOperation();
    }
}

void PreviewModel::cancelPlanning() {
    state_.cancelPlanning();
    back();
}

} // namespace lumeo
