#include "ui/models/ProcessingModel.h"

#include "app/AppState.h"

#include <chrono>

namespace lumeo {

ProcessingModel::ProcessingModel(AppState& state, QObject* parent) : QObject(parent), state_(state) {
    connect(&state, &AppState::organizationPlanChanged, this, &ProcessingModel::planChanged);
    connect(&state, &AppState::isProcessingChanged, this, &ProcessingModel::followRun);
    connect(&state, &AppState::operationProgressChanged, this, &ProcessingModel::followProgress);
    connect(&clock_, &QTimer::timeout, this, &ProcessingModel::show);
    clock_.setInterval(std::chrono::seconds(1));
    show();
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
    show();
}

void ProcessingModel::followProgress() {
    // A pause is also announced, but its progress has no new time.
    const double seconds = state_.operationProgress().elapsedSeconds;
    if (seconds > publishedSeconds_) {
        publishedSeconds_ = seconds;
        sincePublished_.start();
    }
    show();
}

void ProcessingModel::show() {
    const OperationProgress& progress = state_.operationProgress();
    // The total is known before the run reports anything.
    const bool hasTold = !isRunning() || progress.totalFiles > 0;
    figures_ = RunFigures::of(progress, hasTold ? progress.totalFiles : state_.totalFilesCount(),
                              isRunning() ? publishedSeconds_ +
                                                static_cast<double>(sincePublished_.elapsed()) / 1000.0
                                          : progress.elapsedSeconds);
    emit figuresChanged();
}

bool ProcessingModel::isMove() const {
    return state_.organizationPlan().operationMode == OperationMode::move;
}

bool ProcessingModel::isRunning() const {
    return state_.isProcessing();
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
