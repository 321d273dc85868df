#include "ui/models/LongWork.h"

#include "app/AppState.h"
#include "ui/models/RunTexts.h"

namespace lumeo {

LongWork::LongWork(const AppState& state, double seconds, QObject* parent)
    : QObject(parent), state_(state), seconds_(seconds) {
    connect(&state, &AppState::isScanningChanged, this, [this] {
        if (state_.isScanning()) {
            since_.start();
        }
    });
    connect(&state, &AppState::scanFinished, this, [this] {
        if (!state_.scanProgress().isCancelled) {
            tell(QStringLiteral("Scan Complete"),
                 QStringLiteral("%1 found").arg(fileCountText(state_.totalFilesCount())));
        }
    });
    connect(&state, &AppState::isDetectingDuplicatesChanged, this, [this] {
        if (state_.isDetectingDuplicates()) {
            since_.start();
        } else if (state_.isAnalyzed()) {
            tell(QStringLiteral("Duplicates analyzed"),
                 QStringLiteral("The catalogue shows which files are the same."));
        }
    });
    connect(&state, &AppState::isProcessingChanged, this, [this] {
        if (state_.isProcessing()) {
            since_.start();
        }
    });
    connect(&state, &AppState::operationFinished, this, [this](const auto& /*journal*/, bool isCancelled) {
        const OperationProgress& run = state_.operationProgress();
        if (!isCancelled) {
            tell(QStringLiteral("Organization Complete"),
                 run.errorsCount > 0
                     ? QStringLiteral("%1 could not be organized").arg(fileCountText(run.errorsCount))
                     : QStringLiteral("%1 structured and verified").arg(fileCountText(run.verifiedCount)));
        }
    });
    connect(&state, &AppState::isUndoingChanged, this, [this] {
        if (state_.isUndoing()) {
            since_.start();
        }
    });
    connect(&state, &AppState::undoResultChanged, this, [this] {
        if (!state_.isUndoing() && state_.undoResult()) {
            tell(QStringLiteral("Rollback complete"),
                 QStringLiteral("%1 restored or removed")
                     .arg(fileCountText(state_.undoResult()->restoredCount)));
        }
    });
}

void LongWork::tell(const QString& title, const QString& text) {
    if (since_.isValid() && static_cast<double>(since_.elapsed()) >= seconds_ * 1000) {
        emit ended(title, text);
    }
}

} // namespace lumeo
