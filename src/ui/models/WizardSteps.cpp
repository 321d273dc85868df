#include "ui/models/WizardSteps.h"

#include "app/AppState.h"

#include <array>

namespace lumeo {
namespace {

struct StepFace {
    const char* labelKey;
    const char* symbol;
    const char* tint;
};

// In the order of WizardStep.
constexpr std::array<StepFace, wizardStepCount> faces{{
    {"step.sources", "externaldrive.fill", "blue"},
    {"step.scanResults", "sparkle.magnifyingglass", "cyan"},
    {"step.organization", "folder.badge.gearshape", "orange"},
    {"step.preview", "eye.fill", "purple"},
    {"step.processing", "arrow.triangle.2.circlepath", "indigo"},
    {"step.report", "checkmark.seal.fill", "green"},
}};

const StepFace& face(int step) {
    return faces.at(static_cast<std::size_t>(step));
}

} // namespace

WizardSteps::WizardSteps(const AppState& state, QObject* parent) : QAbstractListModel(parent), state_(state) {
    connect(&state, &AppState::currentStepChanged, this, &WizardSteps::announce);
    connect(&state, &AppState::completedStepsChanged, this, &WizardSteps::announce);
    connect(&state, &AppState::isScanningChanged, this, &WizardSteps::announce);
    connect(&state, &AppState::isProcessingChanged, this, &WizardSteps::announce);
    connect(&state, &AppState::activeManifestChanged, this, &WizardSteps::announce);
}

int WizardSteps::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : wizardStepCount;
}

QVariant WizardSteps::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto step = static_cast<WizardStep>(index.row());
    switch (role) {
    case labelKeyRole:
        return QString::fromLatin1(face(index.row()).labelKey);
    case symbolRole:
        return QString::fromLatin1(face(index.row()).symbol);
    case tintRole:
        return tint(index.row());
    case isCurrentRole:
        return step == state_.currentStep();
    case isCompletedRole:
        return state_.completedSteps().contains(step) && state_.isReachable(step);
    case isReachableRole:
        return state_.isReachable(step);
    default:
        return {};
    }
}

QHash<int, QByteArray> WizardSteps::roleNames() const {
    return {{labelKeyRole, "labelKey"},   {symbolRole, "symbolName"},       {tintRole, "tint"},
            {isCurrentRole, "isCurrent"}, {isCompletedRole, "isCompleted"}, {isReachableRole, "isReachable"}};
}

QString WizardSteps::tint(int step) {
    return QString::fromLatin1(face(step).tint);
}

void WizardSteps::announce() {
    emit dataChanged(index(0), index(wizardStepCount - 1), {isCurrentRole, isCompletedRole, isReachableRole});
}

} // namespace lumeo
