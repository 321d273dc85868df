#pragma once

#include "app/AppState.h"
#include "app/Preferences.h"
#include "l10n/LocalizationManager.h"
#include "platform/PosixFileSystem.h"
#include "platform/Volumes.h"
#include "samples/TinyPhotos.h"
#include "support/EventLoop.h"
#include "support/FaultyFileSystem.h"
#include "support/SystemSettings.h"
#include "support/TempFolder.h"

#include <QSettings>

#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace lumeo::testing {

/// Volumes whose facts a test sets. A folder is on the volume with the longest path above it. Any thread may
/// call.
class MadeVolumes final : public Volumes {
public:
    void add(const FilePath& mountPoint, std::optional<std::int64_t> total,
             std::optional<std::int64_t> available, bool isRemovable = false) {
        VolumeFacts facts;
        facts.totalBytes = total;
        facts.availableBytes = available;
        facts.isRemovable = isRemovable;
        const std::scoped_lock lock(mutex_);
        all_[mountPoint] = facts;
    }

    [[nodiscard]] FilePath resolved(const FilePath& path) const override { return path; }
    [[nodiscard]] std::optional<FilePath> mountPoint(const FilePath& path) const override {
        const std::scoped_lock lock(mutex_);
        for (FilePath folder = path; folder != folder.parent(); folder = folder.parent()) {
            if (all_.contains(folder)) {
                return folder;
            }
        }
        return FilePath("/");
    }
    [[nodiscard]] VolumeFacts facts(const FilePath& mountPoint) const override {
        const std::scoped_lock lock(mutex_);
        return all_.at(mountPoint);
    }

private:
    mutable std::mutex mutex_;
    std::map<FilePath, VolumeFacts> all_{{FilePath("/"), VolumeFacts{}}}; ///< guarded by mutex_
};

/// Answers at once with what the test has prepared, and remembers what was asked.
class MadeDesktop final : public FolderChooser, public SavePanel, public FileBrowser {
public:
    std::vector<FilePath> folders;
    std::optional<FilePath> document;
    std::vector<FolderRequest> requests;
    std::vector<SaveRequest> saveRequests;
    std::vector<FilePath> revealed;
    std::vector<FilePath> shown;
    std::vector<FilePath> opened;

    void choose(const FolderRequest& request, FolderChooser::Answer answer) override {
        requests.push_back(request);
        answer(folders);
    }
    void choose(const SaveRequest& request, SavePanel::Answer answer) override {
        saveRequests.push_back(request);
        answer(document);
    }
    void reveal(const FilePath& folder) override { revealed.push_back(folder); }
    void show(const FilePath& file) override { shown.push_back(file); }
    void open(const FilePath& file) override { opened.push_back(file); }
};

/// The whole state of a program. Its settings, sources and archive are in one folder of its own.
struct MadeState {
    ScopedEnvironment locale{"LC_ALL", "en_US.UTF-8"};
    TempFolder folder;
    QSettings settings{QString::fromStdString((folder / "settings.ini").bytes()), QSettings::IniFormat};
    Preferences preferences{settings};
    LocalizationManager localization{settings, {QStringLiteral("en")}};
    PosixFileSystem realDisk;
    FaultyFileSystem disk{realDisk};
    SystemClock clock;
    MadeVolumes volumes;
    MadeDesktop desktop;
    RunJournals journals{realDisk, folder / "journals"};
    AppState state{{.fileSystem = disk,
                    .clock = clock,
                    .volumes = volumes,
                    .preferences = preferences,
                    .desktop = {desktop, desktop, desktop},
                    .journals = journals}};

    /// Writes a photo with its own date.
    FilePath writePhoto(std::string_view relative, const std::string& date = "2021:03:14 15:30:45") const {
        TinyPhoto photo;
        photo.dateTimeOriginal = date;
        photo.model = "Camera";
        return folder.write(relative, tinyJpeg(photo));
    }

    /// Scans "source" below the folder. False when the scan does not end.
    [[nodiscard]] bool scan() {
        state.addSource(folder / "source");
        state.startScan();
        return waitUntil([this] { return !state.isScanning(); });
    }

    /// Scans, and goes on to the preview, with every file planned into "archive" below the folder.
    [[nodiscard]] bool goToPreview() {
        if (!scan()) {
            return false;
        }
        state.proceedToNextStep();
        state.setDestination(folder / "archive");
        state.previewChanges();
        return waitUntil([this] { return !state.isPlanning(); });
    }

    /// Goes to the preview, and then through a run to the report.
    [[nodiscard]] bool goToReport() {
        if (!goToPreview()) {
            return false;
        }
        state.startOperation();
        return waitUntil([this] { return state.currentStep() == WizardStep::report; });
    }

    void setMode(OperationMode mode) {
        OrganizationPlan plan = state.organizationPlan();
        plan.operationMode = mode;
        state.setOrganizationPlan(plan);
    }
};

} // namespace lumeo::testing
