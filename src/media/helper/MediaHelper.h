#pragma once

#include "media/helper/CageWalls.h"
#include "media/helper/HelperProcess.h"
#include "media/movie/ForeignContainer.h"
#include "media/movie/MovieProperties.h"

#include <optional>
#include <stop_token>

namespace lumeo {

class ReadableFile;

/// Asks lumeo-media-helper for what only a decoder library can tell about a movie. The helper is started when
/// it is first needed and ended together with this object. It receives files that are open for reading, never
/// a path. A helper that dies, hangs or sends something unasked is ended, and the next file gets a new one.
/// Used by one thread at a time.
class MediaHelper {
public:
    MediaHelper() : MediaHelper(HelperProcess::installed("lumeo-media-helper")) {}

    /// Uses another program than the installed helper. If it is absent, no question is answered.
    explicit MediaHelper(std::optional<FilePath> program) : program_(std::move(program)) {}

    /// Duration and size. Absent when the helper refuses the file, and for a file without a descriptor, which
    /// cannot be passed on. A refused file is not asked about again as long as this program runs.
    std::optional<MovieProperties> read(ReadableFile& file, ForeignContainer container,
                                        const std::stop_token& stop);

    /// The protections that confine the helper. Absent when it cannot be started.
    std::optional<CageWalls> walls();

private:
    template<class Question, class Answer>
    bool ask(const Question& question, std::optional<int> descriptor, Answer& answer,
             const std::stop_token& stop);

    std::optional<FilePath> program_;
    std::optional<HelperProcess> process_;
};

} // namespace lumeo
