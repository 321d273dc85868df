#pragma once

#include "media/BoundedFile.h"
#include "media/movie/ForeignContainer.h"
#include "media/movie/MovieProperties.h"

#include <optional>

namespace lumeo {

/// Duration and size of a movie, by libavformat. Absent when the file is no such container after all.
/// Pictures are not decoded: a decoder that is given no room for a frame tells the size that stands in the
/// stream's head.
std::optional<MovieProperties> readOtherMovie(BoundedFile& file, ForeignContainer container);

} // namespace lumeo
