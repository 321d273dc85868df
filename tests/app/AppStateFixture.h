#pragma once

#include "app/AppState.h"
#include "app/CatalogueCounts.h"
#include "app/Preferences.h"
#include "platform/PosixFileSystem.h"
#include "support/EventLoop.h"
#include "support/FaultyFileSystem.h"
#include "support/Gate.h"
#include "support/TempFolder.h"

#include <QSettings>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {

/// One volume that holds everything, with the free space that a test sets. When it sleeps, it does not
/// answer.
class OneVolume final : public Volumes {
public:
    static constexpr std::int64_t unknown = -1;
    std::atomic<std::int64_t> freeBytes = 1'000'000'000;
    std::atomic<bool> isAsleep = false;

    void wake() {
        isAsleep = false;
        isAsleep.notify_all();
    }

    [[nodiscard]] FilePath resolved(const FilePath& path) const override {
        isAsleep.wait(true);
        return path;
    }
    [[nodiscard]] std::optional<FilePath> mountPoint(const FilePath& /*path*/) const override {
        return FilePath("/");
    }
    [[nodiscard]] VolumeFacts facts(const FilePath& /*mountPoint*/) const override {
        VolumeFacts facts;
        if (const std::int64_t bytes = freeBytes; bytes != unknown) {
            facts.availableBytes = bytes;
        }
        return facts;
    }
};

/// A desktop whose user gives the answers that the test has prepared.
class ScriptedDesktop final : public FolderChooser, public SavePanel, public FileBrowser {
public:
    std::vector<FilePath> folders;
    FolderRequest lastRequest;

    void choose(const FolderRequest& request, FolderChooser::Answer answer) override {
        lastRequest = request;
        held_ = std::move(answer);
    }
    void answerFolders() { held_(folders); }
    void choose(const SaveRequest& /*request*/, SavePanel::Answer answer) override { answer({}); }
    void reveal(const FilePath& /*folder*/) override {}
    void show(const FilePath& /*file*/) override {}
    void open(const FilePath& /*file*/) override {}

private:
    FolderChooser::Answer held_;
};

/// The state over real folders: a card with photos, and an archive that does not exist yet.
class AppStateTest : public ::testing::Test {
protected:
    AppStateTest() { restart(); }

    /// Restarts the program.
    void restart() {
        state_.reset();
        preferences_.reset();
        settings_.reset();
        settings_ = std::make_unique<QSettings>(QString::fromStdString((home_ / "settings.ini").bytes()),
                                                QSettings::IniFormat);
        preferences_ = std::make_unique<Preferences>(*settings_);
        state_ = std::make_unique<AppState>(AppEnvironment{
            disk_, clock_, volumes_, *preferences_, {desktop_, desktop_, desktop_}, journals_});
    }

    [[nodiscard]] AppState& state() { return *state_; }
    [[nodiscard]] Preferences& preferences() { return *preferences_; }
    [[nodiscard]] CatalogueCounts counts() { return CatalogueCounts::of(*state().scannedItems()); }
    [[nodiscard]] FilePath archive() const { return home_ / "Archive"; }

    void scanCard() {
        state().addSource(card_.path());
        state().startScan();
        ASSERT_TRUE(testing::waitUntil([this] { return !state().isScanning(); }));
    }
    /// Goes to the preview with the card's files planned.
    void preview() {
        state().setDestination(archive());
        scanCard();
        state().proceedToNextStep();
        ASSERT_EQ(state().currentStep(), WizardStep::organization);
        state().previewChanges();
        ASSERT_TRUE(testing::waitUntil([this] { return !state().isPlanning(); }));
        ASSERT_EQ(state().currentStep(), WizardStep::preview);
    }
    /// Starts a run and waits until it works.
    void startRun() {
        state().startOperation();
        ASSERT_TRUE(testing::waitUntil([this] { return state().isProcessing(); }));
    }
    void runToTheEnd() {
        state().startOperation();
        ASSERT_TRUE(testing::waitUntil([this] { return state().currentStep() == WizardStep::report; }));
    }
    void findDuplicates() {
        state().runDuplicateDetection();
        ASSERT_TRUE(testing::waitUntil([this] { return !state().isDetectingDuplicates(); }));
    }
    void fillCard(int files, std::size_t size = 10) {
        for (int number = 0; number < files; ++number) {
            const std::string name = "photo" + std::to_string(number) + ".jpg";
            card_.write(name, name + std::string(size, 'x'));
        }
    }

    void choosePolicy(DuplicatePolicy policy) {
        OrganizationPlan plan = state().organizationPlan();
        plan.duplicatePolicy = policy;
        state().setOrganizationPlan(plan);
    }
    void choosePolicy(UnknownDatePolicy policy) {
        OrganizationPlan plan = state().organizationPlan();
        plan.unknownDatePolicy = policy;
        state().setOrganizationPlan(plan);
    }

    static std::vector<std::string> namesBelow(const FilePath& folder) {
        std::vector<std::string> names;
        for (const auto& [name, content] : filesBelow(folder)) {
            names.push_back(name);
        }
        return names;
    }
    /// The destinations of the items, relative to the archive, sorted.
    [[nodiscard]] std::vector<std::string> places() {
        std::vector<std::string> places;
        for (const MediaItem& item : *state().scannedItems()) {
            places.push_back(item.plannedDestinationURL
                                 ? item.plannedDestinationURL->bytes().substr(archive().bytes().size() + 1)
                                 : "none");
        }
        std::ranges::sort(places);
        return places;
    }

    static std::ptrdiff_t threadCount() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
    }
    /// Waits for this, because the kernel lists a joined thread for another moment.
    static bool comesDownTo(std::ptrdiff_t threads) {
        return testing::waitUntil([threads] { return threadCount() <= threads; });
    }
    /// Makes every call of the disk take this long from now on.
    void slowDown(std::chrono::microseconds delay) {
        disk_.beforeEachCall([delay](const DiskCall& /*call*/) { std::this_thread::sleep_for(delay); });
    }

    TempFolder card_;
    TempFolder home_;
    OneVolume volumes_;
    ScriptedDesktop desktop_;
    SystemClock clock_;
    PosixFileSystem realDisk_;
    FaultyFileSystem disk_{realDisk_};
    RunJournals journals_{realDisk_, home_ / "journals"}; // separate from the faults that a test sets

private:
    std::unique_ptr<QSettings> settings_;
    std::unique_ptr<Preferences> preferences_;
    std::unique_ptr<AppState> state_;
};

} // namespace lumeo
