#pragma once

#include "platform/FileSystem.h"
#include "platform/Mutex.h"

#include <cstddef>
#include <optional>
#include <unordered_set>

namespace lumeo {

/// Remembers files that a helper could not read, so that none of them costs time twice. A file is recognised
/// by its inode and the time of its last change. After a change it is asked about again. Any thread may call.
class RefusedFiles {
public:
    [[nodiscard]] bool contains(const FileStatus& file) const;
    void add(const FileStatus& file);

private:
    struct Known {
        FileIdentity identity;
        std::int64_t size = 0;
        std::optional<Instant> changeDate;
        friend bool operator==(const Known&, const Known&) = default;
    };
    struct Hash {
        std::size_t operator()(const Known& file) const {
            return std::hash<std::uint64_t>{}(file.identity.inode ^ file.identity.device << 32U);
        }
    };

    mutable Mutex mutex_;
    std::unordered_set<Known, Hash> files_ LUMEO_GUARDED_BY(mutex_);
};

} // namespace lumeo
