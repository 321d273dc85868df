#include "media/movie/MovieReader.h"

#include "media/FileWindow.h"
#include "media/helper/MediaHelper.h"
#include "media/movie/ContainerReaders.h"
#include "media/movie/ForeignContainer.h"
#include "media/movie/StreamDates.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace lumeo {
namespace {

std::optional<Instant> dateInStream(FileWindow& file, ForeignContainer container) {
    switch (container) {
    case ForeignContainer::transportStream:
        return avchdDate(file);
    case ForeignContainer::dv:
        return dvDate(file);
    default:
        return std::nullopt;
    }
}

std::optional<MovieProperties> readContainer(ReadableFile& file, MediaHelper& helper,
                                             const std::stop_token& stop) {
    static constexpr std::array readers{readIsoMovie, readMatroskaMovie, readAsfMovie, readAviMovie};
    FileWindow window(file, stop);
    for (const auto reader : readers) {
        if (std::optional<MovieProperties> movie = reader(window)) {
            return movie;
        }
    }
    const std::optional<ForeignContainer> container = foreignContainer(window);
    if (!container) {
        return std::nullopt;
    }
    const std::optional<Instant> date = dateInStream(window, *container);
    std::optional<MovieProperties> movie = helper.read(file, *container, stop);
    if (date) {
        movie = movie ? movie : MovieProperties{};
        movie->metadata.push_back({"creationDate", date, std::nullopt});
    }
    return movie;
}

} // namespace

std::optional<MovieProperties> MovieReader::read(const FileSystem& fileSystem, const FilePath& path,
                                                 MediaHelper& helper, const std::stop_token& stop) {
    const FileResult<std::unique_ptr<ReadableFile>> file = fileSystem.openForReading(path);
    if (!file) {
        return std::nullopt;
    }
    std::optional<MovieProperties> movie = readContainer(**file, helper, stop);
    if (movie) {
        if (movie->videoTrack &&
            !(movie->videoTrack->naturalWidth > 0 && movie->videoTrack->naturalHeight > 0)) {
            movie->videoTrack.reset(); // the header does not tell the size
        }
        static constexpr std::array<std::string_view, 3> dateKeys{"com.apple.quicktime.creationdate", "©day",
                                                                  "creationDate"};
        for (const std::string_view key : dateKeys) {
            std::ranges::copy_if(movie->metadata, std::back_inserter(movie->commonCreationDates),
                                 [&](const MovieMetadataItem& item) { return item.key == key; });
        }
    }
    return movie;
}

} // namespace lumeo
