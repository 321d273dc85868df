#include "platform/photo/MetadataLibrary.h"

#include <exiv2/exiv2.hpp>

namespace lumeo {

std::unique_lock<std::mutex> lockMetadataLibrary() {
    static std::mutex mutex;
    static bool isReady = false; // guarded by the mutex
    std::unique_lock lock(mutex);
    if (!isReady) {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        Exiv2::XmpParser::initialize();
        isReady = true;
    }
    return lock;
}

} // namespace lumeo
