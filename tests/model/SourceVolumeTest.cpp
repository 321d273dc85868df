#include "model/SourceVolume.h"

#include "support/SystemSettings.h"

#include <gtest/gtest.h>

namespace lumeo {
namespace {

constexpr std::int64_t gigabyte = 1'000'000'000;

/// One volume, mounted at /media/card. /link leads there too.
class OneVolume final : public Volumes {
public:
    FilePath resolved(const FilePath& path) const override {
        return path.bytes().starts_with("/link") ? FilePath("/media/card" + path.bytes().substr(5)) : path;
    }
    std::optional<FilePath> mountPoint(const FilePath& path) const override {
        return path.bytes().starts_with("/media/card") ? std::optional(FilePath("/link")) : std::nullopt;
    }
    VolumeFacts facts(const FilePath& mountPoint) const override {
        return mountPoint == FilePath("/media/card") ? told : VolumeFacts();
    }

    VolumeFacts told;
};

class SourceVolumeTest : public testing::Test {
protected:
    [[nodiscard]] VolumeCapacity capacity() const {
        return DestinationCapacityService::capacity(FilePath("/link/DCIM"), volumes_);
    }
    [[nodiscard]] SourceVolume measure(const char* path) const {
        return SourceVolume::measure(Uuid(), FilePath(path), volumes_);
    }
    VolumeFacts& told() { return volumes_.told; }

private:
    OneVolume volumes_;
    ScopedEnvironment english_{"LC_ALL", "en_US.UTF-8"};
};

TEST_F(SourceVolumeTest, TakesTheLargestFigureThatPromisesRoom) {
    EXPECT_EQ(capacity(), (VolumeCapacity{FilePath("/media/card"), std::nullopt, std::nullopt}));
    told().availableBytes = 0;
    EXPECT_EQ(capacity().availableBytes, 0);
    told().fileSystemFreeBytes = -1;
    EXPECT_EQ(capacity().availableBytes, 0);
    told().availableBytesForImportantUsage = 3 * gigabyte;
    EXPECT_EQ(capacity().availableBytes, 3 * gigabyte);
    told().fileSystemFreeBytes = 4 * gigabyte;
    EXPECT_EQ(capacity().availableBytes, 4 * gigabyte);
}

TEST_F(SourceVolumeTest, TellsWhatIsUsedOrElseFree) {
    told().totalBytes = 500 * gigabyte;
    EXPECT_EQ(measure("/link").formattedCapacitySummary(), "500 GB");
    told().availableBytes = 120 * gigabyte;
    SourceVolume volume = measure("/link");
    EXPECT_EQ(volume.usedSpaceBytes, 380 * gigabyte);
    EXPECT_EQ(volume.formattedCapacitySummary(), "380 GB used / 500 GB");
    EXPECT_EQ(volume.usagePercentage(), 0.76);
    volume.usedSpaceBytes = 600 * gigabyte;
    EXPECT_EQ(volume.usagePercentage(), 1);
    told().availableBytes = 501 * gigabyte;
    EXPECT_EQ(measure("/link").usedSpaceBytes, std::nullopt);
    EXPECT_EQ(measure("/link").formattedCapacitySummary(), "501 GB free of 500 GB");
    told().totalBytes.reset();
    EXPECT_EQ(measure("/link").formattedCapacitySummary(), std::nullopt);
}

TEST_F(SourceVolumeTest, IsNamedAfterItsVolumeElseItsFolderElseItsPathAndKnowsItsRootAndKind) {
    EXPECT_EQ(measure("/link/DCIM").name, "DCIM");
    EXPECT_EQ(measure("/elsewhere/photo\xFFs").name, "photo\uFFFDs");
    told().localizedName = "EOS_DIGITAL";
    EXPECT_EQ(measure("/link/DCIM").name, "EOS_DIGITAL");
    told().localizedName = "";
    EXPECT_EQ(measure("/link/DCIM").name, "/link/DCIM");
    EXPECT_TRUE(measure("/link").isVolumeRoot);
    EXPECT_FALSE(measure("/link/DCIM").isVolumeRoot);
    EXPECT_TRUE(measure("/elsewhere").isVolumeRoot); // nothing is known, so the folder counts as the root

    EXPECT_FALSE(measure("/link").isRemovable);
    told().isInternal = false;
    EXPECT_TRUE(measure("/link").isRemovable);
    told().isRemovable = false;
    EXPECT_FALSE(measure("/link").isRemovable) << "the medium tells more than the connection";
}

} // namespace
} // namespace lumeo
