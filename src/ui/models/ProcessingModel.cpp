#include "ui/models/ProcessingModel.h"

#include "app/AppState.h"
#include "ui/models/RunTexts.h"
#include "ui/models/ShownText.h"

#include <algorithm>

namespace lumeo {

ProcessingModel::ProcessingModel(AppState& state, QObject* parent) : QObject(parent), state_(state) {
    connect(&state, &AppState::organizationPlanChanged, this, &ProcessingModel::planChanged);
    connect(&state, &AppState::isProcessingChanged, this, &ProcessingModel::isRunningChanged);
    connect(&state, &AppState::operationProgressChanged, this, &ProcessingModel::progressChanged);
}

bool ProcessingModel::isMove() const {
    return state_.organizationPlan().operationMode == OperationMode::move;
}

bool ProcessingModel::isRunning() const {
    return state_.isProcessing();
}

bool ProcessingModel::isPaused() const {
    return state_.operationProgress().isPaused;
}

double ProcessingModel::fraction() const {
    const OperationProgress& progress = state_.operationProgress();
    return progress.totalFiles < 1 ? 0
                                   : std::clamp(static_cast<double>(progress.processedCount) /
                                                    static_cast<double>(progress.totalFiles),
                                                0.0, 1.0);
}

QString ProcessingModel::percentage() const {
    const OperationProgress& progress = state_.operationProgress();
    return percentText(progress.processedCount, progress.totalFiles);
}

QString ProcessingModel::processedOfTotal() const {
    const OperationProgress& progress = state_.operationProgress();
    return QStringLiteral("%1 / %2").arg(progress.processedCount).arg(progress.totalFiles);
}

QString ProcessingModel::currentName() const {
    return shownText(state_.operationProgress().currentItemName);
}

QString ProcessingModel::verified() const {
    return shownNumber(state_.operationProgress().verifiedCount);
}

QString ProcessingModel::skipped() const {
    return shownNumber(state_.operationProgress().skippedCount);
}

QString ProcessingModel::errors() const {
    return shownNumber(state_.operationProgress().errorsCount);
}

bool ProcessingModel::hasErrors() const {
    return state_.operationProgress().errorsCount > 0;
}

QString ProcessingModel::transferred() const {
    return shownByteCount(state_.operationProgress().transferredBytes);
}

QString ProcessingModel::speed() const {
    return speedText(state_.operationProgress().averageThroughputBytesPerSec);
}

QString ProcessingModel::remaining() const {
    const OperationProgress& progress = state_.operationProgress();
    return shownNumber(std::max<std::int64_t>(progress.totalFiles - progress.processedCount, 0));
}

QString ProcessingModel::elapsed() const {
    return spanText(state_.operationProgress().elapsedSeconds);
}

QString ProcessingModel::timeLeft() const {
    return spanText(state_.operationProgress().estimatedSecondsRemaining);
}

void ProcessingModel::pause() {
    state_.pauseOperation();
}

void ProcessingModel::resume() {
    state_.resumeOperation();
}

void ProcessingModel::cancel() {
    state_.cancelOperation();
}

} // namespace lumeo
