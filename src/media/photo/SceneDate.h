#pragma once

#include "media/photo/PhotoProperties.h"

#include <optional>

namespace lumeo {

/// Takes `date`, which agencies and editors write for the scene in a picture, as the date of the original
/// when nothing better is there. These dates are often a day alone, which is read as noon. Such a day tells
/// less than another date in the file that has a time on the same day, so it gives way to that one.
void fillSceneDate(const std::optional<Instant>& date, PhotoProperties& properties);

} // namespace lumeo
