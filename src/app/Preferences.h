#pragma once

#include "model/EnumText.h"
#include "model/OrganizationPlan.h"
#include "transfer/LastOperationSummary.h"

#include <QObject>

#include <optional>

class QSettings;

namespace lumeo {

enum class AppAppearance { light, dark };

/// Stored and shown; nothing is tuned by it.
enum class PerformanceProfile { autoProfile, conservative, fastSSD };

/// The stored preferences, each written as it is set and announced to every holder. A value that is
/// missing or not one of ours reads as its default and stays as it is: a newer version may know it. Main
/// thread only; the language is the
/// LocalizationManager's.
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

    [[nodiscard]] PerformanceProfile performanceProfile() const;
    void setPerformanceProfile(PerformanceProfile profile);

    /// Absent when none is stored or the stored one cannot be read, which leaves it stored.
    [[nodiscard]] std::optional<LastOperationSummary> lastOperationSummary() const;
    void setLastOperationSummary(const LastOperationSummary& summary);

    /// A plan as a new archive starts with.
    [[nodiscard]] OrganizationPlan newPlan() const;

signals:
    void appearanceChanged();
    void defaultOperationChanged();
    void verifyTransfersChanged();
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
