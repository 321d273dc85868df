#include "ui/models/OrganizationModel.h"

#include "app/AppState.h"
#include "l10n/AppLanguage.h"
#include "ui/MadeState.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

namespace lumeo {
namespace {

using testing::MadeState;

class OrganizationModelTest : public ::testing::Test {
protected:
    [[nodiscard]] const OrganizationPlan& plan() const { return made_.state.organizationPlan(); }

    /// The catalogue is counted only while its screen is shown.
    bool comeHere() {
        const bool isScanned = made_.scan();
        made_.state.proceedToNextStep();
        return isScanned;
    }
    /// Chooses a destination on a volume of 100 MB with this number of free bytes.
    void setDestination(std::optional<std::int64_t> freeBytes) {
        made_.volumes.add(FilePath("/"), 100'000'000, freeBytes);
        made_.desktop.folders = {made_.folder / "archive"};
        model_.chooseDestination();
        ASSERT_TRUE(testing::waitUntil([&] {
            return made_.state.destinationVolume()->totalCapacityBytes.has_value(); // it is measured
        }));
    }

    MadeState made_;
    OrganizationModel model_{made_.state, made_.localization};
};

TEST_F(OrganizationModelTest, EditsThePlanAndKeepsTheRestOfIt) {
    setDestination(std::nullopt);
    model_.setPreset(3);
    EXPECT_TRUE(model_.isCustom());
    model_.setCustomTemplate(QStringLiteral("{YYYY}/Ünïcode"));
    model_.setMove(true);
    model_.setDuplicatePolicy(1);
    model_.setUnknownDatePolicy(1);
    model_.setVerifyTransfers(false);

    const OrganizationPlan expected{.preset = OrganizationPreset::custom,
                                    .customTemplate = "{YYYY}/Ünïcode",
                                    .destinationURL = made_.folder / "archive",
                                    .operationMode = OperationMode::move,
                                    .duplicatePolicy = DuplicatePolicy::copyToDuplicatesFolder,
                                    .unknownDatePolicy = UnknownDatePolicy::useFilesystemDate,
                                    .verifyTransfers = false};
    EXPECT_EQ(plan(), expected);
    EXPECT_EQ(model_.preset(), 3);
    EXPECT_EQ(model_.duplicatePolicy(), 1);
    EXPECT_EQ(model_.unknownDatePolicy(), 1);
    EXPECT_EQ(model_.duplicatePolicies().at(1), QStringLiteral("Organize duplicates into _Duplicates/"));
}

TEST_F(OrganizationModelTest, ShowsWhereTheCustomTemplateWouldPutAScannedFile) {
    EXPECT_EQ(model_.exampleAfter(), QString());
    made_.folder.write("source/a.png", "no picture");
    made_.writePhoto("source/b.jpg");
    ASSERT_TRUE(comeHere());
    const QSignalSpy changed(&model_, &OrganizationModel::exampleChanged);
    model_.setCustomTemplate(QStringLiteral("{YYYY}/{MM} {Month}/{CameraModel}"));
    EXPECT_FALSE(changed.isEmpty());
    EXPECT_EQ(model_.exampleBefore(), QStringLiteral("b.jpg"));
    EXPECT_EQ(model_.exampleAfter(), QStringLiteral("2021/03 March/Camera/b.jpg"));
    EXPECT_EQ(model_.patternProblem(), QString());
    for (const char* odd : {"{YYYY}/{Yeer}", "{YYYY", "MM}", "{}"}) {
        model_.setCustomTemplate(QString::fromLatin1(odd));
        EXPECT_NE(model_.patternProblem(), QString()) << odd;
    }
    model_.setCustomTemplate(QStringLiteral("../.."));
    EXPECT_FALSE(model_.exampleAfter().contains(QStringLiteral("..")));
    model_.setCustomTemplate({});
    EXPECT_EQ(model_.exampleAfter(), QStringLiteral("b.jpg"));
}

TEST_F(OrganizationModelTest, TellsWhetherTheDestinationHasRoom) {
    EXPECT_FALSE(model_.destination().isChosen);
    EXPECT_EQ(model_.destination().capacityLine, QString());
    made_.folder.write("source/a.jpg", std::string(1'000'000, 'a'));
    ASSERT_TRUE(comeHere());

    setDestination(1'000'001);
    EXPECT_FALSE(model_.destination().lacksRoom);
    EXPECT_DOUBLE_EQ(model_.destination().addedShare, 0.01);
    EXPECT_DOUBLE_EQ(model_.destination().usedShare, 0.98999999);
    setDestination(1'000'000);
    EXPECT_TRUE(model_.destination().lacksRoom);
    EXPECT_EQ(model_.destination().capacityLine,
              QStringLiteral("1 MB free space (Estimated archive size: 1 MB)"));
    setDestination(std::nullopt);
    EXPECT_FALSE(model_.destination().lacksRoom);
    EXPECT_FALSE(model_.destination().hasCapacity);
    EXPECT_EQ(model_.destination().capacityLine,
              QStringLiteral("Unknown free space (Estimated archive size: 1 MB)"));
}

} // namespace
} // namespace lumeo
