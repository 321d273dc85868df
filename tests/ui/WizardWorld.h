#pragma once

#include "support/EventLoop.h"
#include "support/FakeClock.h"
#include "support/SystemSettings.h"
#include "support/TempFolder.h"

#include "app/AppState.h"
#include "app/Preferences.h"
#include "l10n/LocalizationManager.h"
#include "platform/PosixFileSystem.h"
#include "platform/Volumes.h"

#include <gtest/gtest.h>

#include <QSettings>

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace lumeo {

/// One volume that has as much room as a test gives it.
class RoomyVolumes final : public Volumes {
public:
    std::int64_t available = 1'000'000'000;

    [[nodiscard]] FilePath resolved(const FilePath& path) const override { return path; }
    [[nodiscard]] std::optional<FilePath> mountPoint(const FilePath&) const override { return FilePath("/"); }
    [[nodiscard]] VolumeFacts facts(const FilePath&) const override {
        VolumeFacts facts;
        facts.totalBytes = 2'000'000'000;
        facts.availableBytes = available;
        return facts;
    }
};

/// A desktop whose user has answered already.
class AnsweringDesktop : public FolderChooser, public SavePanel, public FileBrowser {
public:
    std::optional<FilePath> placeToSave; ///< absent for a user who cancels
    std::vector<SaveRequest> saveRequests;
    std::vector<FilePath> revealed;

    void choose(const FolderRequest&, FolderChooser::Answer answer) override { answer({}); }
    void choose(const SaveRequest& request, SavePanel::Answer answer) override {
        saveRequests.push_back(request);
        answer(placeToSave);
    }
    void reveal(const FilePath& folder) override { revealed.push_back(folder); }
};

/// The whole program but its window, on folders of its own: "source" and "archive".
class WizardWorld {
public:
    explicit WizardWorld(FileSystem& fileSystem) : fileSystem_(fileSystem) {}
    WizardWorld() : WizardWorld(ownFileSystem()) {}

    const TempFolder folder;
    const ScopedEnvironment locale{"LC_ALL", "en_US.UTF-8"};
    const ScopedTimeZone zone{"UTC"};
    const FakeClock clock{Instant(std::chrono::sys_days{std::chrono::year{2024} / 5 / 17})};
    RoomyVolumes volumes;
    AnsweringDesktop desktop;
    QSettings settings{QString::fromStdString((folder / "settings.ini").bytes()), QSettings::IniFormat};
    Preferences preferences{settings};
    LocalizationManager texts{settings, {QStringLiteral("en")}};

private:
    static FileSystem& ownFileSystem() {
        static PosixFileSystem fileSystem;
        return fileSystem;
    }
    FileSystem& fileSystem_;

public:
    AppState state{{fileSystem_, clock, volumes, preferences, {desktop, desktop, desktop}}};

    [[nodiscard]] FileSystem& fileSystem() const { return fileSystem_; }
    [[nodiscard]] Desktop desktopSeam() { return {desktop, desktop, desktop}; }

    FilePath addMedia(std::string_view name, std::string_view content) const {
        return folder.write("source/" + std::string(name), content);
    }

    void setMode(OperationMode mode) {
        OrganizationPlan plan = state.organizationPlan();
        plan.operationMode = mode;
        state.setOrganizationPlan(plan);
    }

    /// From the sources, with the media added so far, to the preview with every place planned.
    void goToPreview() {
        state.addSource(folder / "source");
        state.startScan();
        ASSERT_TRUE(testing::waitUntil([this] { return !state.isScanning(); }));
        state.proceedToNextStep();
        state.setDestination(folder / "archive");
        state.previewChanges();
        ASSERT_TRUE(testing::waitUntil([this] { return !state.isPlanning(); }));
        ASSERT_EQ(state.currentStep(), WizardStep::preview);
    }

    /// And on, through a run, to the report.
    void goToReport() {
        goToPreview();
        state.startOperation();
        ASSERT_TRUE(testing::waitUntil([this] { return state.currentStep() == WizardStep::report; }));
    }
};

} // namespace lumeo
