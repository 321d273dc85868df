#include "media/helper/RefusedFiles.h"

namespace lumeo {

bool RefusedFiles::contains(const FileStatus& file) const {
    const MutexGuard guard(mutex_);
    return files_.contains({file.identity, file.size, file.changeDate});
}

void RefusedFiles::add(const FileStatus& file) {
    constexpr std::size_t most = 100'000;
    const MutexGuard guard(mutex_);
    if (files_.size() >= most) {
        files_.clear(); // then some are asked about once more
    }
    files_.insert({file.identity, file.size, file.changeDate});
}

} // namespace lumeo
