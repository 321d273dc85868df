#include "ui/models/ProcessingModel.h"

#include "app/AppState.h"
#include "ui/models/RunTexts.h"
#include "ui/models/ShownText.h"

#include <algorithm>
#include <chrono>

namespace lumeo {

ProcessingModel::ProcessingModel(AppState& state, QObject* parent) : QObject(parent), state_(state) {
    connect(&state, &AppState::organizationPlanChanged, this, &ProcessingModel::planChanged);
    connect(&state, &AppState::isProcessingChanged, this, &ProcessingModel::followRun);
    connect(&state, &AppState::operationProgressChanged, this, &ProcessingModel::followProgress);
    connect(&clock_, &QTimer::timeout, this, &ProcessingModel::progressChanged);
    clock_.setInterval(std::chrono::seconds(1));
}

void ProcessingModel::followRun() {
    if (isRunning()) {
        publishedSeconds_ = 0;
        sincePublished_.start();
        clock_.start();
    } else {
        clock_.stop();
    }
    emit isRunningChanged();
    emit progressChanged();
}

void ProcessingModel::followProgress() {
    // A pause is announced, too, and tells nothing new of the time.
    const double seconds = state_.operationProgress().elapsedSeconds;
    if (seconds > publishedSeconds_) {
        publishedSeconds_ = seconds;
        sincePublished_.start();
    }
    emit progressChanged();
}

/// Known before the run has told of itself.
std::int64_t ProcessingModel::total() const {
    const std::int64_t published = state_.operationProgress().totalFiles;
    return isRunning() && published == 0 ? state_.totalFilesCount() : published;
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
    return total() < 1
               ? 0
               : std::clamp(static_cast<double>(progress.processedCount) / static_cast<double>(total()), 0.0,
                            1.0);
}

QString ProcessingModel::percentage() const {
    return percentText(state_.operationProgress().processedCount, total());
}

QString ProcessingModel::processedOfTotal() const {
    return QStringLiteral("%1 / %2").arg(state_.operationProgress().processedCount).arg(total());
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
    return shownNumber(std::max<std::int64_t>(total() - state_.operationProgress().processedCount, 0));
}

QString ProcessingModel::elapsed() const {
    return spanText(isRunning() ? publishedSeconds_ + static_cast<double>(sincePublished_.elapsed()) / 1000.0
                                : state_.operationProgress().elapsedSeconds);
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
