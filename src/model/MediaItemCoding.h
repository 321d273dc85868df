#pragma once

#include "model/Json.h"
#include "model/MediaItem.h"

namespace lumeo {

/// A media item as a keyed object. File locations are percent-encoded file URLs, identifiers are text, and
/// instants are seconds since 2001-01-01 UTC.
Json encode(const MediaItem& item);
Decoded<MediaItem> decodeMediaItem(const Json& json);

} // namespace lumeo
