#pragma once

#include "model/MediaItem.h"
#include "platform/FilePath.h"

#include <QString>

#include <optional>

namespace lumeo {

/// How the screens show an item's fields.

QString symbolName(MediaType type);
QString tintName(DateConfidence confidence);

/// The path, or a dash when there is none.
QString destinationText(const std::optional<FilePath>& destination);

inline constexpr QChar emDash(0x2014);

} // namespace lumeo
