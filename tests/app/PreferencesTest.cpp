#include "app/Preferences.h"

#include "app/SettingsFile.h"
#include "platform/PosixFileSystem.h"
#include "support/TempFolder.h"

#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QSettings>
#include <QStringList>

#include <memory>

namespace lumeo {
namespace {

/// Each test has its own settings file. restart() stands for the next start of the program.
class PreferencesTest : public testing::Test {
protected:
    void restart() {
        preferences_.reset();
        settings_ = std::make_unique<QSettings>(QString::fromStdString(file().bytes()), QSettings::IniFormat);
        preferences_ = std::make_unique<Preferences>(*settings_);
    }
    void startWith(const std::string& content) {
        folder_.write("settings.ini", content);
        restart();
    }
    [[nodiscard]] FilePath file() const { return folder_ / "settings.ini"; }
    [[nodiscard]] Preferences& preferences() { return *preferences_; }
    [[nodiscard]] QSettings& settings() { return *settings_; }

    void expectDefaults() const {
        EXPECT_EQ(preferences_->appearance(), AppAppearance::light);
        EXPECT_EQ(preferences_->defaultOperation(), OperationMode::copy);
        EXPECT_TRUE(preferences_->verifyTransfers());
        EXPECT_EQ(preferences_->performanceProfile(), PerformanceProfile::autoProfile);
        EXPECT_EQ(preferences_->lastOperationSummary(), std::nullopt);
        EXPECT_EQ(preferences_->newPlan(), OrganizationPlan());
    }

private:
    TempFolder folder_;
    std::unique_ptr<QSettings> settings_;
    std::unique_ptr<Preferences> preferences_;
};

TEST_F(PreferencesTest, AreKeptFromOneLifeToTheNext) {
    LastOperationSummary summary;
    summary.operationType = "move";
    summary.processedCount = 3;
    summary.destinationDisplayName = "Été 写真 \"2021\", \\1";
    restart();
    expectDefaults();
    preferences().setAppearance(AppAppearance::dark);
    preferences().setDefaultOperation(OperationMode::move);
    preferences().setVerifyTransfers(false);
    preferences().setListsChecksums(true);
    preferences().setPerformanceProfile(PerformanceProfile::fastSSD);
    preferences().setLastOperationSummary(summary);

    restart();
    EXPECT_EQ(preferences().appearance(), AppAppearance::dark);
    EXPECT_EQ(preferences().performanceProfile(), PerformanceProfile::fastSSD);
    EXPECT_EQ(preferences().lastOperationSummary(), summary);
    EXPECT_EQ(preferences().newPlan().operationMode, OperationMode::move);
    EXPECT_FALSE(preferences().newPlan().verifyTransfers);
    EXPECT_TRUE(preferences().newPlan().listsChecksums);
    EXPECT_EQ(settings().value(QStringLiteral("performanceProfile")), QStringLiteral("fastSSD"));
    EXPECT_EQ(settings().value(QStringLiteral("verifyTransfers")), QStringLiteral("false"));
}

TEST_F(PreferencesTest, ReadWhatIsNoneOfTheirValuesAsTheDefaultAndLeaveIt) {
    const std::string damagedSummary = "lastOperationSummary.v1=@ByteArray({)\n";
    startWith("[General]\nappearanceMode=system\ndefaultOperation=MOVE\nverifyTransfers=\n"
              "performanceProfile=a, b\n" +
              damagedSummary);
    expectDefaults();
    EXPECT_EQ(settings().value(QStringLiteral("appearanceMode")), QStringLiteral("system"));
    settings().sync();
    EXPECT_NE(contentOf(file()).find(damagedSummary), std::string::npos);

    preferences().setLastOperationSummary({});
    restart();
    EXPECT_EQ(preferences().lastOperationSummary(), LastOperationSummary());
}

TEST_F(PreferencesTest, SurviveADamagedFileAndWriteAWholeOne) {
    using namespace std::string_literals;
    startWith("\0\xFF[[[=\n@Invalid(%%\nappearanceMode\n\""s);
    expectDefaults();
    preferences().setAppearance(AppAppearance::dark);
    EXPECT_EQ(preferences().appearance(), AppAppearance::dark);
    restart();
    EXPECT_EQ(preferences().appearance(), AppAppearance::dark);
}

TEST_F(PreferencesTest, AnnounceWhatChangesAndNothingElse) {
    restart();
    QStringList announced;
    const auto note = [&](const char* name) {
        return [&announced, name] { announced.append(QString::fromLatin1(name)); };
    };
    QObject::connect(&preferences(), &Preferences::appearanceChanged, note("appearance"));
    QObject::connect(&preferences(), &Preferences::defaultOperationChanged, note("operation"));
    QObject::connect(&preferences(), &Preferences::verifyTransfersChanged, note("verify"));
    QObject::connect(&preferences(), &Preferences::performanceProfileChanged, note("profile"));

    preferences().setAppearance(AppAppearance::light);
    preferences().setVerifyTransfers(true);
    EXPECT_TRUE(announced.isEmpty());
    EXPECT_TRUE(settings().contains(QStringLiteral("verifyTransfers")));

    preferences().setPerformanceProfile(PerformanceProfile::conservative);
    preferences().setVerifyTransfers(false);
    preferences().setDefaultOperation(OperationMode::move);
    preferences().setAppearance(AppAppearance::dark);
    EXPECT_EQ(announced.join(u' '), QStringLiteral("profile verify operation appearance"));
}

TEST(SettingsFileTest, NeitherAPipeNorALeftOverLockHoldsTheProgramUp) {
    PosixFileSystem disk;
    const TempFolder folder;
    const FilePath file = folder.write("LUMEO.conf", "[General]\nappearanceMode=dark\n");
    folder.write("LUMEO.conf.lock", "");
    {
        const auto settings = openSettings(disk, file);
        EXPECT_EQ(Preferences(*settings).appearance(), AppAppearance::dark);
        Preferences(*settings).setAppearance(AppAppearance::light);
        settings->sync();
    }
    EXPECT_NE(contentOf(file).find("appearanceMode=light"), std::string::npos);

    std::filesystem::remove(file.bytes());
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    const auto settings = openSettings(disk, file);
    Preferences preferences(*settings);
    preferences.setAppearance(AppAppearance::dark);
    EXPECT_EQ(preferences.appearance(), AppAppearance::dark); // until the program ends
}

} // namespace
} // namespace lumeo
