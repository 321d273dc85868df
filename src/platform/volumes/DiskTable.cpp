#include "platform/volumes/DiskTable.h"

#include "platform/PosixHandle.h"
#include "platform/volumes/MountTable.h"
#include "platform/volumes/SystemFiles.h"

#include <algorithm>
#include <array>
#include <vector>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace lumeo {
namespace {

constexpr DiskTraits linuxDisk{.isCertain = true};
constexpr DiskTraits exFat{.ignoresCase = true,
                           .restrictsNames = true,
                           .refusesIllFormedText = true,
                           .countsUtf16 = true,
                           .isCertain = true};
constexpr DiskTraits fat{.ignoresCase = true,
                         .restrictsNames = true,
                         .refusesIllFormedText = true,
                         .countsUtf16 = true,
                         .largestFile = (std::int64_t{4} << 30) - 1,
                         .isCertain = true};
/// Its drivers accept every character and distinguish case, unless they are configured not to.
constexpr DiskTraits ntfs{.refusesIllFormedText = true, .countsUtf16 = true};
constexpr DiskTraits hfs{
    .ignoresCase = true, .ignoresComposition = true, .refusesIllFormedText = true, .countsUtf16 = true};
/// Most servers of such shares have disks that do this.
constexpr DiskTraits share{.ignoresCase = true};

struct Row {
    std::string_view type;
    const DiskTraits& traits;
};

constexpr std::array table{
    Row{"ext2", linuxDisk},   Row{"ext3", linuxDisk},  Row{"ext4", linuxDisk}, Row{"xfs", linuxDisk},
    Row{"btrfs", linuxDisk},  Row{"tmpfs", linuxDisk}, Row{"f2fs", linuxDisk}, Row{"ramfs", linuxDisk},
    Row{"vfat", fat},         Row{"msdos", fat},       Row{"fuse.fat", fat},   Row{"exfat", exFat},
    Row{"fuse.exfat", exFat}, Row{"ntfs", ntfs},       Row{"ntfs3", ntfs},     Row{"fuse.ntfs", ntfs},
    Row{"hfs", hfs},          Row{"hfsplus", hfs},     Row{"apfs", hfs},       Row{"fuse.apfs", hfs},
    Row{"cifs", share},       Row{"smb3", share},
};

/// For a disk that a program outside the kernel reads, the mount table only tells that. udev may know the
/// type of file system on the device.
std::string innerType(const Mount& mount, const FilePath& systemRoot) {
    constexpr std::string_view key = "E:ID_FS_TYPE=";
    if (mount.fileSystemType != "fuseblk") {
        return mount.fileSystemType;
    }
    const std::string known = contentOfSystemFile(systemRoot.appending("run/udev/data/b" + mount.device));
    const std::size_t found = known.find(key);
    if (found == std::string::npos) {
        return mount.fileSystemType;
    }
    const std::size_t start = found + key.size();
    return known.substr(start, known.find('\n', start) - start);
}

std::optional<std::size_t> longestNameOf(int folder) {
    struct statvfs told {};
    const bool isKnown = retrying([&] { return fstatvfs(folder, &told); }) == 0 && told.f_namemax > 0;
    return isKnown ? std::optional<std::size_t>(told.f_namemax) : std::nullopt;
}

/// Some disks of this system can ignore case in single folders.
bool hasFoldedNames(int folder) {
    int flags = 0;
    return ioctl(folder, FS_IOC_GETFLAGS, &flags) == 0 && (flags & FS_CASEFOLD_FL) != 0; // NOLINT
}

std::string inOtherCase(std::string name) {
    std::ranges::transform(name, name.begin(), [](char c) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        return isLetter ? static_cast<char>(c ^ 0x20) : c;
    });
    return name;
}

/// Whether a name in the folder is also found in another case, although it is not listed in that case. Not
/// all disks give the file the same number then.
bool findsNamesInOtherCase(const Descriptor& folder, const std::vector<std::string>& names) {
    const auto named =
        std::ranges::find_if(names, [](const std::string& name) { return inOtherCase(name) != name; });
    if (named == names.end()) {
        return false;
    }
    struct stat found {};
    const std::string other = inOtherCase(*named);
    return fstatat(folder.get(), other.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0 &&
           std::ranges::find(names, other) == names.end();
}

} // namespace

DiskTraits traitsOfType(std::string_view fileSystemType) {
    const auto* const row = std::ranges::find(table, fileSystemType, &Row::type);
    return row == table.end() ? DiskTraits{} : row->traits;
}

DiskTraits traitsOfDisk(const FilePath& path, const FilePath& systemRoot) {
    const std::optional<Mount> mount = mountUnder(path, systemRoot);
    DiskTraits traits = mount ? traitsOfType(innerType(*mount, systemRoot)) : DiskTraits{};
    const Descriptor folder(callAt(path, [](int above, const char* name) {
        return openat(above, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }));
    if (!folder.isOpen()) {
        return traits;
    }
    if (const std::optional<std::size_t> longest = longestNameOf(folder.get());
        longest && !traits.countsUtf16) {
        traits.longestName = std::min(traits.longestName, *longest);
    }
    if (hasFoldedNames(folder.get())) {
        traits.ignoresCase = true;
        traits.ignoresComposition = true;
    } else if (!traits.isCertain && !traits.ignoresCase) {
        traits.ignoresCase = findsNamesInOtherCase(folder, namesInSystemFolder(path));
    }
    return traits;
}

} // namespace lumeo
