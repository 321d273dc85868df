#pragma once

#include "model/EnumText.h"
#include "model/OrganizationPlan.h"
#include "transfer/LastOperationSummary.h"

#include <QList>
#include <QObject>

#include <optional>

class QSettings;

namespace lumeo {

enum class AppAppearance { light, dark };

/// Stored and shown, but no job depends on it.
enum class PerformanceProfile { autoProfile, conservative, fastSSD };

/// The stored preferences. Each is written when it is set and announced to every holder. A missing or unknown
/// value reads as its default. An unknown value stays stored, because a newer version may know it. Main
/// thread only. The language belongs to the LocalizationManager.
class Preferences : public QObject {
    Q_OBJECT

public:
    /// `settings` must outlive this object.
    explicit Preferences(QSettings& settings, QObject* parent = nullptr);

    [[nodiscard]] AppAppearance appearance() const;
    void setAppearance(AppAppearance appearance);

    [[nodiscard]] OperationMode defaultOperation() const;
    void setDefaultOperation(OperationMode mode);

    [[nodiscard]] bool verifyTransfers() const;
    void setVerifyTransfers(bool verify);

    /// Whether runs add their digests to the archive's list of them; not unless it is asked for.
    [[nodiscard]] bool listsChecksums() const;
    void setListsChecksums(bool lists);

    [[nodiscard]] PerformanceProfile performanceProfile() const;
    void setPerformanceProfile(PerformanceProfile profile);

    /// Absent when none is stored or the stored one cannot be read. The stored one stays in both cases.
    [[nodiscard]] std::optional<LastOperationSummary> lastOperationSummary() const;
    void setLastOperationSummary(const LastOperationSummary& summary);

    /// The plan that a new archive starts with. The widths that the user gave the preview's columns, in their
    /// order. A width is 0 where the user gave none. Empty when no width was ever changed.
    [[nodiscard]] QList<int> columnWidths() const;
    void setColumnWidths(const QList<int>& widths);

    [[nodiscard]] OrganizationPlan newPlan() const;

signals:
    void appearanceChanged();
    void defaultOperationChanged();
    void verifyTransfersChanged();
    void listsChecksumsChanged();
    void performanceProfileChanged();

private:
    QSettings& settings_;
};

template<>
struct EnumTexts<AppAppearance> {
    static constexpr std::array texts{
        std::pair{AppAppearance::light, std::string_view("light")},
        std::pair{AppAppearance::dark, std::string_view("dark")},
    };
};

template<>
struct EnumTexts<PerformanceProfile> {
    static constexpr std::array texts{
        std::pair{PerformanceProfile::autoProfile, std::string_view("auto")},
        std::pair{PerformanceProfile::conservative, std::string_view("conservative")},
        std::pair{PerformanceProfile::fastSSD, std::string_view("fastSSD")},
    };
};

} // namespace lumeo
