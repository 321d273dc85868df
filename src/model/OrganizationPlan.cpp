#include "model/OrganizationPlan.h"

namespace lumeo {

std::string_view title(OrganizationPreset preset) {
    switch (preset) {
    case OrganizationPreset::yearAndMonth:
        return "By Year & Month (Recommended)";
    case OrganizationPreset::yearOnly:
        return "By Year";
    case OrganizationPreset::exactDate:
        return "By Exact Date";
    case OrganizationPreset::custom:
        break;
    }
    return "Custom Template";
}

std::string_view subtitle(OrganizationPreset preset) {
    switch (preset) {
    case OrganizationPreset::yearAndMonth:
        return "2025 / 2025-08 August / IMG_001.jpg";
    case OrganizationPreset::yearOnly:
        return "2025 / IMG_001.jpg";
    case OrganizationPreset::exactDate:
        return "2025 / 2025-08 August / 2025-08-17 / IMG_001.jpg";
    case OrganizationPreset::custom:
        break;
    }
    return "Configure custom folder pattern tokens";
}

std::string_view defaultTemplate(OrganizationPreset preset) {
    switch (preset) {
    case OrganizationPreset::yearOnly:
        return "{YYYY}";
    case OrganizationPreset::exactDate:
        return "{YYYY}/{YYYY}-{MM} {Month}/{YYYY}-{MM}-{DD}";
    case OrganizationPreset::yearAndMonth:
    case OrganizationPreset::custom:
        break;
    }
    return "{YYYY}/{YYYY}-{MM} {Month}";
}

std::string_view displayName(OperationMode mode) {
    return mode == OperationMode::move ? "Move" : "Copy";
}

std::string_view displayName(DuplicatePolicy policy) {
    switch (policy) {
    case DuplicatePolicy::copyToDuplicatesFolder:
        return "Organize duplicates into _Duplicates/";
    case DuplicatePolicy::keepAll:
        return "Keep all files";
    case DuplicatePolicy::skipDuplicates:
        break;
    }
    return "Skip duplicate copies (Recommended)";
}

std::string_view displayName(UnknownDatePolicy policy) {
    return policy == UnknownDatePolicy::useFilesystemDate ? "Use Finder filesystem date"
                                                          : "Place in _Unknown Date/ (Recommended)";
}

} // namespace lumeo
