#pragma once

#include <mutex>

namespace lumeo {

/// Exiv2 is not made for several threads at once (its XMP toolkit keeps global tables), and needs
/// setting up before its first use. Whoever calls it holds this lock meanwhile. Any thread may take it;
/// the first to do so sets the library up and mutes its log.
[[nodiscard]] std::unique_lock<std::mutex> lockMetadataLibrary();

} // namespace lumeo
