#pragma once

#include "model/MediaItem.h"

namespace lumeo {

/// Whether the user should look at an item's date again.
enum class DateDoubt {
    none,
    doubtful, ///< dated with low confidence or with a warning
    undated,
};

/// Any thread may call.
DateDoubt dateDoubtOf(const MediaItem& item);

} // namespace lumeo
