#include "platform/volumes/BlockDevice.h"

#include "platform/volumes/MountTable.h"
#include "platform/volumes/SystemFiles.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace lumeo {
namespace {

/// The content of a one-line file of the kernel. Disks pad their names with blanks, which are removed.
std::string attribute(const FilePath& folder, std::string_view name) {
    constexpr std::string_view blanks = " \t\n";
    const std::string text = contentOfSystemFile(folder.appending(name));
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

/// The kernel's folder for the device. It is found by number, or else by the name of the mounted device,
/// because btrfs numbers its volumes itself.
std::optional<FilePath> deviceFolder(const Mount& mount, const FilePath& systemRoot) {
    if (!mount.device.starts_with("0:")) {
        return realPath(systemRoot.appending("sys/dev/block").appending(mount.device));
    }
    if (!mount.source.starts_with("/dev/")) {
        return std::nullopt;
    }
    const std::optional<FilePath> node = realPath(systemRoot.appending(mount.source.substr(1)));
    return node ? realPath(systemRoot.appending("sys/class/block").appending(node->lastComponent()))
                : std::nullopt;
}

FilePath wholeDisk(const FilePath& device) {
    return contentOfSystemFile(device.appending("partition")).empty() ? device : device.parent();
}

/// The disk below the layers that encrypt, join or divide disks. Of several disks it is the first.
FilePath physicalDisk(const FilePath& device) {
    constexpr int mostLayers = 16;
    FilePath disk = wholeDisk(device);
    for (int layer = 0; layer < mostLayers; ++layer) {
        const std::vector<std::string> below = namesInSystemFolder(disk.appending("slaves"));
        if (below.empty()) {
            break;
        }
        const std::optional<FilePath> next = realPath(disk.appending("slaves").appending(below.front()));
        if (!next) {
            break;
        }
        disk = wholeDisk(*next);
    }
    return disk;
}

/// True when `device` hangs on a connection that the user can unplug.
bool isOutwardConnection(const FilePath& device) {
    const std::optional<FilePath> subsystemFolder = realPath(device.appending("subsystem"));
    if (!subsystemFolder) {
        return false;
    }
    const std::string_view subsystem = subsystemFolder->lastComponent();
    if (subsystem == "mmc") {
        return attribute(device, "type") == "SD"; // type "MMC" is soldered to the board
    }
    if (subsystem == "pci") {
        return attribute(device, "removable") == "removable"; // behind a Thunderbolt port or a card slot
    }
    return subsystem == "usb" || subsystem == "firewire" || subsystem == "memstick" || subsystem == "pcmcia";
}

std::optional<bool> isInternal(const FilePath& disk, const FilePath& systemRoot) {
    const std::optional<FilePath> devices = realPath(systemRoot.appending("sys/devices"));
    if (!devices || disk.bytes().starts_with(devices->appending("virtual/").bytes())) {
        return std::nullopt;
    }
    for (FilePath device = disk; device.bytes().size() > devices->bytes().size(); device = device.parent()) {
        if (isOutwardConnection(device)) {
            return false;
        }
    }
    return true;
}

/// udev writes a character that could harm in a file name as "\x" and two hex digits.
std::string decodedLabel(std::string_view name) {
    constexpr std::string_view mark = "\\x";
    std::string label;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const std::string_view digits = name.substr(std::min(i + mark.size(), name.size()), 2);
        unsigned value = 0;
        if (name.substr(i).starts_with(mark) && digits.size() == 2 &&
            std::from_chars(digits.data(), digits.data() + 2, value, 16).ptr == digits.data() + 2) {
            label += static_cast<char>(value);
            i += mark.size() + 1;
        } else {
            label += name[i];
        }
    }
    return label;
}

std::optional<std::string> labelOf(const FilePath& device, const FilePath& systemRoot) {
    const FilePath labels = systemRoot.appending("dev/disk/by-label");
    for (const std::string& name : namesInSystemFolder(labels)) {
        const std::optional<FilePath> node = realPath(labels.appending(name));
        if (node && node->lastComponent() == device.lastComponent()) {
            return decodedLabel(name);
        }
    }
    return std::nullopt;
}

/// Memory cards keep their name in another place than disks.
std::optional<std::string> modelOf(const FilePath& disk) {
    for (const std::string_view name : {"device/model", "device/name"}) {
        if (std::string model = attribute(disk, name); !model.empty()) {
            return model;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<BlockDevice> blockDeviceOf(const Mount& mount, const FilePath& systemRoot) {
    const std::optional<FilePath> device = deviceFolder(mount, systemRoot);
    if (!device) {
        return std::nullopt;
    }
    const FilePath disk = physicalDisk(*device);
    return BlockDevice{labelOf(*device, systemRoot), modelOf(disk), attribute(disk, "removable") == "1",
                       isInternal(disk, systemRoot)};
}

} // namespace lumeo
