#pragma once

namespace lumeo {

/// The six screens of the wizard, in order.
enum class WizardStep { sources, scanResults, organization, preview, processing, report };

inline constexpr int wizardStepCount = 6;

/// From 1 to 6, for people.
constexpr int stepNumber(WizardStep step) {
    return static_cast<int>(step) + 1;
}

} // namespace lumeo
