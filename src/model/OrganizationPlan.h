#pragma once

#include "model/EnumText.h"
#include "platform/FilePath.h"

#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// A preset folder structure, or `custom` for the user's own template.
enum class OrganizationPreset { yearAndMonth, yearOnly, exactDate, custom };

enum class OperationMode { copy, move };

/// What to do with the later members of a group of byte-identical files.
enum class DuplicatePolicy { skipDuplicates, copyToDuplicatesFolder, keepAll };

/// What to do with files without a capture date.
enum class UnknownDatePolicy { unknownFolder, useFilesystemDate };

std::string_view title(OrganizationPreset preset);
std::string_view subtitle(OrganizationPreset preset); ///< an example of the resulting path
std::string_view defaultTemplate(OrganizationPreset preset);
std::string_view displayName(OperationMode mode);
std::string_view displayName(DuplicatePolicy policy);
std::string_view displayName(UnknownDatePolicy policy);

/// The user's choices for the structure of the archive.
struct OrganizationPlan {
    OrganizationPreset preset = OrganizationPreset::yearAndMonth;
    std::string customTemplate{defaultTemplate(OrganizationPreset::yearAndMonth)}; ///< used only for `custom`
    std::optional<FilePath> destinationURL; ///< the archive's root folder
    OperationMode operationMode = OperationMode::copy;
    DuplicatePolicy duplicatePolicy = DuplicatePolicy::skipDuplicates;
    UnknownDatePolicy unknownDatePolicy = UnknownDatePolicy::unknownFolder;
    bool verifyTransfers = true; ///< the user's switch; every transfer is verified in either case
    bool listsChecksums = false; ///< the run adds its digests to the archive's list

    friend bool operator==(const OrganizationPlan&, const OrganizationPlan&) = default;
};

template<>
struct EnumTexts<OrganizationPreset> {
    static constexpr std::array texts{
        std::pair{OrganizationPreset::yearAndMonth, std::string_view("yearAndMonth")},
        std::pair{OrganizationPreset::yearOnly, std::string_view("yearOnly")},
        std::pair{OrganizationPreset::exactDate, std::string_view("exactDate")},
        std::pair{OrganizationPreset::custom, std::string_view("custom")},
    };
};

template<>
struct EnumTexts<OperationMode> {
    static constexpr std::array texts{
        std::pair{OperationMode::copy, std::string_view("copy")},
        std::pair{OperationMode::move, std::string_view("move")},
    };
};

template<>
struct EnumTexts<DuplicatePolicy> {
    static constexpr std::array texts{
        std::pair{DuplicatePolicy::skipDuplicates, std::string_view("skipDuplicates")},
        std::pair{DuplicatePolicy::copyToDuplicatesFolder, std::string_view("copyToDuplicatesFolder")},
        std::pair{DuplicatePolicy::keepAll, std::string_view("keepAll")},
    };
};

template<>
struct EnumTexts<UnknownDatePolicy> {
    static constexpr std::array texts{
        std::pair{UnknownDatePolicy::unknownFolder, std::string_view("unknownFolder")},
        std::pair{UnknownDatePolicy::useFilesystemDate, std::string_view("useFilesystemDate")},
    };
};

} // namespace lumeo
