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

/// One volume that holds everything and has as much room as a test wants. Asleep, it answers nobody.
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

/// A desktop whose user answers with what the test has laid down.
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

/// The state over real folders: a card with photos and an archive that is yet to be made.
class AppStateTest : public ::testing::Test {
protected:
    AppStateTest() { restart(); }

    /// The next life of the program.
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
    /// The card's files with their places in the archive, at the preview step.
    void preview() {
        state().setDestination(archive());
        scanCard();
        state().proceedToNextStep();
        ASSERT_EQ(state().currentStep(), WizardStep::organization);
        state().previewChanges();
        ASSERT_TRUE(testing::waitUntil([this] { return !state().isPlanning(); }));
        ASSERT_EQ(state().currentStep(), WizardStep::preview);
    }
    /// A run that is under way.
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
    /// Where the items are to go, relative to the archive, sorted.
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
    /// Waits for it: the kernel lists a joined thread for a moment more.
    static bool comesDownTo(std::ptrdiff_t threads) {
        return testing::waitUntil([threads] { return threadCount() <= threads; });
    }
    /// From now on every call of the disk takes this long.
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
    RunJournals journals_{realDisk_, home_ / "journals"}; // apart from the faults that a test has in mind

private:
    std::unique_ptr<QSettings> settings_;
    std::unique_ptr<Preferences> preferences_;
    std::unique_ptr<AppState> state_;
};

} // namespace lumeo
