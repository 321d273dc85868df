#pragma once

#include "model/Json.h"
#include "model/MediaItem.h"

namespace lumeo {

/// A media item as a keyed object: file locations as percent-encoded file URLs, identifiers as text,
/// instants as seconds since 2001-01-01 UTC.
Json encode(const MediaItem& item);
Decoded<MediaItem> decodeMediaItem(const Json& json);

} // namespace lumeo
