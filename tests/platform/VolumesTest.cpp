#include "platform/Volumes.h"

#include "support/TempFolder.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

/// A machine whose mount table and devices are folders of the test. Its mounts are below the temporary folder
/// and have numbers that no kernel has given.
class VolumesTest : public testing::Test {
protected:
    FilePath folder(std::string_view relative) const {
        std::filesystem::create_directories((folder_ / relative).bytes());
        return folder_ / relative;
    }
    void link(std::string_view name, std::string_view target) const {
        folder(FilePath(std::string(name)).parent().bytes());
        std::filesystem::create_symlink(target, (folder_ / name).bytes());
    }
    /// A mount at `point`, in the form in which the kernel writes it.
    void mount(std::string_view device, std::string_view point, std::string_view type,
               std::string_view source) {
        table_ += std::to_string(nextId_++) + " 1 " + std::string(device) + " / " + folder_.path().bytes() +
                  std::string(point) + " rw,relatime shared:1 - " + std::string(type) + " " +
                  std::string(source) + " rw\n";
        folder_.write("proc/self/mountinfo", table_);
    }
    /// A disk with one partition. `path` is below the kernel's folder of devices.
    void disk(const std::string& path, std::string_view number, std::string_view partition) {
        const std::string device = "sys/devices/" + path;
        folder_.write(device + "/removable", "0\n");
        folder_.write(device + "/" + std::string(partition) + "/partition", "1\n");
        const std::string home = "../../devices/" + path + "/" + std::string(partition);
        link("sys/dev/block/" + std::string(number), home);
        link("sys/class/block/" + std::string(partition), home);
        folder_.write("dev/" + std::string(partition), "");
    }
    [[nodiscard]] VolumeFacts factsOf(std::string_view relative) const {
        const SystemVolumes volumes(folder_.path());
        return volumes.facts(volumes.mountPoint(folder(relative)).value());
    }
    [[nodiscard]] std::optional<std::string> mountPointOf(const FilePath& path) const {
        const std::optional<FilePath> point = SystemVolumes(folder_.path()).mountPoint(path);
        return point ? std::optional(point->bytes().substr(folder_.path().bytes().size())) : std::nullopt;
    }
    void write(const std::string& relative, std::string_view content) { folder_.write(relative, content); }

private:
    TempFolder folder_;
    std::string table_ = "1 0 0:1 / / rw - rootfs rootfs rw\nnot a row\n";
    int nextId_ = 2'000'000'000;
};

TEST_F(VolumesTest, FindsTheDeepestMountThatHoldsAPathAndResolvesLinksAsFarAsItExists) {
    mount("8:1", "/media", "ext4", "/dev/sda1");
    mount("8:2", "/media/My\\040Card\\134\\011", "vfat", "/dev/sdb1");
    mount("8:3", "/media/My\\040Card\\134\\011", "vfat", "/dev/sdc1");
    EXPECT_EQ(mountPointOf(folder("media/photos")), "/media");
    EXPECT_EQ(mountPointOf(folder("media/My Card\\\t/DCIM")), "/media/My Card\\\t");
    EXPECT_EQ(mountPointOf(folder("media/My Card\\\tOther")), "/media");
    EXPECT_EQ(mountPointOf(folder("media").appending("missing")), std::nullopt);

    link("link", "media");
    const SystemVolumes volumes;
    EXPECT_EQ(volumes.resolved(folder("link").appending("not/there")),
              volumes.resolved(folder("media")).appending("not/there"));
    EXPECT_EQ(volumes.facts(folder("media").appending("not/there")), VolumeFacts());
}

TEST_F(VolumesTest, KnowsWhereItsDiskIsConnected) {
    disk("pci0/ata1/host0/block/sda", "8:1", "sda1");
    write("sys/devices/pci0/ata1/host0/block/sda/device/model", "Samsung SSD 870 \n");
    disk("pci0/usb2/2-1/host6/block/sdb", "8:17", "sdb1");
    link("sys/devices/pci0/usb2/2-1/subsystem", "../../../../bus/usb");
    folder("sys/bus/usb");
    disk("pci0/mmc0/mmc0:aaaa/block/mmcblk0", "179:1", "mmcblk0p1");
    link("sys/devices/pci0/mmc0/mmc0:aaaa/subsystem", "../../../../bus/mmc");
    folder("sys/bus/mmc");
    write("sys/devices/pci0/mmc0/mmc0:aaaa/type", "SD\n");
    write("sys/devices/pci0/mmc0/mmc0:aaaa/block/mmcblk0/device/name", "SD32G\n");
    disk("pci0/ata2/host1/block/sr0", "11:1", "sr0p1");
    write("sys/devices/pci0/ata2/host1/block/sr0/removable", "1\n");
    mount("8:1", "/built-in", "ext4", "/dev/sda1");
    mount("8:17", "/stick", "vfat", "/dev/sdb1");
    mount("179:1", "/card", "exfat", "/dev/mmcblk0p1");
    mount("11:1", "/disc", "iso9660", "/dev/sr0");

    const VolumeFacts builtIn = factsOf("built-in");
    EXPECT_EQ(builtIn.localizedName, "Samsung SSD 870");
    EXPECT_EQ(builtIn.isInternal, true);
    EXPECT_EQ(builtIn.isRemovable, std::nullopt);
    EXPECT_GE(builtIn.totalBytes.value(), builtIn.availableBytes.value());
    EXPECT_EQ(factsOf("stick").isInternal, false);
    EXPECT_EQ(factsOf("stick").localizedName, std::nullopt);
    EXPECT_EQ(factsOf("card").isInternal, false);
    EXPECT_EQ(factsOf("card").localizedName, "SD32G");
    EXPECT_EQ(factsOf("disc").isRemovable, true);
}

TEST_F(VolumesTest, SeesTheDiskBelowEncryptionAndTheLabelAboveIt) {
    disk("pci0/usb2/host6/block/sdb", "8:17", "sdb1");
    link("sys/devices/pci0/usb2/subsystem", "../../../bus/usb");
    folder("sys/bus/usb");
    write("sys/devices/pci0/usb2/host6/block/sdb/device/model", "Portable SSD T5\n");
    write("sys/devices/virtual/block/dm-0/removable", "0\n");
    link("sys/devices/virtual/block/dm-0/slaves/sdb1", "../../../../pci0/usb2/host6/block/sdb/sdb1");
    link("sys/class/block/dm-0", "../../devices/virtual/block/dm-0");
    write("dev/dm-0", "");
    link("dev/mapper/luks-1", "../dm-0");
    link("dev/disk/by-label/Fam\\x2filie\\x20\xC3\xA9\\x", "../../dm-0");
    link("dev/disk/by-label/another", "../../sdb1");
    // btrfs gives no device number, only the name of the mounted device.
    mount("0:51", "/encrypted", "btrfs", "/dev/mapper/luks-1");

    const VolumeFacts facts = factsOf("encrypted/subvolume");
    EXPECT_EQ(facts.localizedName, "Fam/ilie \u00e9\\x");
    EXPECT_EQ(facts.isInternal, false);
}

TEST_F(VolumesTest, NamesSharesAndLeavesTheRestUnnamed) {
    mount("0:60", "/nfs", "nfs4", "nas:/export/Family\\040photos/");
    mount("0:61", "/whole", "nfs", "nas:/");
    mount("0:62", "/windows", "cifs", "//nas/photos");
    mount("0:63", "/memory", "tmpfs", "tmpfs");
    EXPECT_EQ(factsOf("nfs").localizedName, "Family photos");
    EXPECT_EQ(factsOf("whole").localizedName, "nas");
    EXPECT_EQ(factsOf("windows").localizedName, "photos");
    EXPECT_EQ(factsOf("memory").localizedName, std::nullopt);
    EXPECT_EQ(factsOf("memory").isInternal, std::nullopt);
}

} // namespace
} // namespace lumeo
