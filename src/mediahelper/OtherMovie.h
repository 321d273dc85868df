#pragma once

#include "media/BoundedFile.h"
#include "media/movie/ForeignContainer.h"
#include "media/movie/MovieProperties.h"

#include <optional>

namespace lumeo {

/// Duration and size of a movie, read by libavformat. Absent when the file is not of this container after
/// all. Pictures are not decoded: a decoder that gets no memory for a frame still tells the size in the
/// stream's header.
std::optional<MovieProperties> readOtherMovie(BoundedFile& file, ForeignContainer container);

} // namespace lumeo
