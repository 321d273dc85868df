#include "platform/LockHolder.h"

#include "platform/volumes/SystemFiles.h"

#include <iomanip>
#include <sstream>

#include <sys/sysmacros.h>

namespace lumeo {
namespace {

/// The name of a file in the kernel's table of locks, such as "08:01:131090".
std::string placeInTable(const FileIdentity& file) {
    std::ostringstream text;
    text << std::hex << std::setfill('0') << std::setw(2) << major(file.device) << ':' << std::setw(2)
         << minor(file.device) << ':' << std::dec << file.inode;
    return text.str();
}

} // namespace

std::optional<std::string> lockHolder(const FileIdentity& locked, const FilePath& systemRoot) {
    const std::string wanted = placeInTable(locked);
    std::istringstream table(contentOfSystemFile(systemRoot.appending("proc/locks")));
    for (std::string row; std::getline(table, row);) {
        // A row is "1: FLOCK  ADVISORY  WRITE 4711 08:01:131090 0 EOF". A process that waits for the lock has
        // "->" after the number.
        std::istringstream fields(row);
        std::string number;
        std::string type;
        std::string strictness;
        std::string kind;
        std::string process;
        std::string place;
        fields >> number >> type >> strictness >> kind >> process >> place;
        if (type != "FLOCK" || place != wanted || process.starts_with('-') || process == "0") {
            continue;
        }
        std::string name = contentOfSystemFile(systemRoot.appending("proc/" + process + "/comm"));
        name.erase(name.find_last_not_of('\n') + 1);
        return name.empty() ? "process " + process : printable(name) + " (process " + process + ")";
    }
    return std::nullopt;
}

} // namespace lumeo
