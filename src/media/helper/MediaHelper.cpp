#include "media/helper/MediaHelper.h"

#include "media/helper/HelperSocket.h"
#include "media/helper/MediaQuestion.h"
#include "media/helper/RefusedFiles.h"
#include "platform/FileSystem.h"

#include <chrono>
#include <cmath>

namespace lumeo {
namespace {

/// Most of this time is for a slow disk. The helper limits its own work.
constexpr std::chrono::seconds longestAnswer{5};

RefusedFiles& refusedFiles() {
    static RefusedFiles files;
    return files;
}

/// A helper that an attacker controls may answer anything, so every figure is checked.
std::optional<MovieProperties> propertiesOf(const MediaAnswer& answer) {
    constexpr double longest = 1e9;
    constexpr double widest = 1e6;
    const auto isWithin = [](double value, double most) { return value > 0 && value <= most; };
    if (answer.isKnown != 1) {
        return std::nullopt;
    }
    MovieProperties movie;
    if (isWithin(answer.durationSeconds, longest)) {
        movie.durationSeconds = answer.durationSeconds;
    }
    if (isWithin(answer.width, widest) && isWithin(answer.height, widest)) {
        movie.videoTrack = MovieVideoTrack{answer.width, answer.height};
    }
    return movie;
}

} // namespace

std::optional<MovieProperties> MediaHelper::read(ReadableFile& file, ForeignContainer container,
                                                 const std::stop_token& stop) {
    const std::optional<int> descriptor = file.descriptor();
    const FileResult<FileStatus> status = file.status();
    if (!descriptor || !status || refusedFiles().contains(*status)) {
        return std::nullopt;
    }
    const MediaQuestion question{status->size, static_cast<std::uint64_t>(container)};
    MediaAnswer answer;
    const bool isAnswered = ask(question, descriptor, answer, stop);
    std::optional<MovieProperties> movie = isAnswered ? propertiesOf(answer) : std::nullopt;
    if (!movie && !stop.stop_requested()) {
        refusedFiles().add(*status);
    }
    return movie;
}

std::optional<CageWalls> MediaHelper::walls() {
    MediaQuestion question;
    question.container = MediaQuestion::aboutTheCage;
    CageWalls walls;
    return ask(question, std::nullopt, walls, {}) ? std::optional(walls) : std::nullopt;
}

template<class Question, class Answer>
bool MediaHelper::ask(const Question& question, std::optional<int> descriptor, Answer& answer,
                      const std::stop_token& stop) {
    if (process_ && process_->hasSpoken()) {
        process_.reset();
    }
    if (!process_ && program_) {
        process_ = HelperProcess::start(*program_);
    }
    if (!process_) {
        return false;
    }
    const auto deadline = std::chrono::steady_clock::now() + longestAnswer;
    const bool isAnswered = process_->send(bytesOf(question), descriptor) &&
                            process_->receive(writableBytesOf(answer), deadline, stop);
    if (!isAnswered) {
        process_.reset();
    }
    return isAnswered;
}

} // namespace lumeo
