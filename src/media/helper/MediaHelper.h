#pragma once

#include "media/helper/CageWalls.h"
#include "media/helper/HelperProcess.h"
#include "media/movie/ForeignContainer.h"
#include "media/movie/MovieProperties.h"

#include <optional>
#include <stop_token>

namespace lumeo {

class ReadableFile;

/// Asks lumeo-media-helper for what only a decoder library can tell of a movie. The helper is started when it
/// is first needed, handed files that are open for reading and never a path, and ended with this object. One
/// that dies, hangs, or speaks unasked is ended, and the next file gets a new one. Used by one thread at a
/// time.
class MediaHelper {
public:
    MediaHelper() : MediaHelper(HelperProcess::installed("lumeo-media-helper")) {}

    /// With another program than the one that comes with this one; absent, no question is answered.
    explicit MediaHelper(std::optional<FilePath> program) : program_(std::move(program)) {}

    /// Duration and size; absent when the file is refused, as some are that no other process could read. A
    /// refused file is not asked about again for as long as this program runs.
    std::optional<MovieProperties> read(ReadableFile& file, ForeignContainer container,
                                        const std::stop_token& stop);

    /// What the helper is locked in by; absent when it cannot be started.
    std::optional<CageWalls> walls();

private:
    template<class Question, class Answer>
    bool ask(const Question& question, std::optional<int> descriptor, Answer& answer,
             const std::stop_token& stop);

    std::optional<FilePath> program_;
    std::optional<HelperProcess> process_;
};

} // namespace lumeo
