#include "ui/thumbnails/ThumbnailService.h"

#include "media/helper/HelperSocket.h"
#include "model/MediaTypeDetector.h"
#include "platform/Mutex.h"
#include "platform/PosixFileSystem.h"
#include "ui/thumbnails/HelperPipe.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>
#include <utility>

namespace lumeo {
namespace {

using namespace std::chrono_literals;

constexpr int mostKept = 200;
constexpr int pixelsPerPoint = 2;
constexpr int largestKept = 512;  // pixels; larger pictures would fill the memory and are made each time
constexpr auto longestWork = 10s; // mostly for a slow disk: the helper limits its own work
constexpr auto longestUnwantedWork = 300ms; // long enough for most files, and the picture is then kept

QByteArray key(const FilePath& file) {
    return QByteArray::fromStdString(file.bytes());
}

bool isSmall(QSize pixels) {
    return std::max(pixels.width(), pixels.height()) <= largestKept;
}

bool isRaw(const FilePath& file) {
    const auto type = MediaTypeDetector::detectType(file);
    return type && type->mediaType == MediaType::rawPhoto;
}

} // namespace

/// Opens files for the helper, which must not open any itself. Each file is opened on a thread of its own, so
/// that a disk that does not answer blocks this thread and not the window. This object lives on while such a
/// thread runs.
class ThumbnailService::Opening : public std::enable_shared_from_this<Opening> {
public:
    explicit Opening(ThumbnailService& service) : service_(&service) {}

    void leave() {
        const MutexGuard guard(mutex_);
        service_ = nullptr;
    }

    void open(quint64 request, const FilePath& path) {
        std::thread([self = shared_from_this(), request, path] {
            auto opened = std::make_shared<Opened>();
            if (auto file = PosixFileSystem().openForReading(path)) {
                if (const auto status = (*file)->status()) {
                    *opened = {std::move(*file), *status};
                }
            }
            const MutexGuard guard(self->mutex_);
            if (self->service_ != nullptr) {
                QMetaObject::invokeMethod(
                    self->service_,
                    [service = self->service_, request, opened] { service->handOn(request, opened); },
                    Qt::QueuedConnection);
            }
        }).detach();
    }

private:
    Mutex mutex_;
    ThumbnailService* service_ LUMEO_GUARDED_BY(mutex_);
};

ThumbnailService::ThumbnailService(QObject* parent)
    : ThumbnailService(HelperProcess::installed("lumeo-thumbnailer"), parent) {}

ThumbnailService::ThumbnailService(std::optional<FilePath> helper, QObject* parent)
    : QObject(parent),
      program_(std::move(helper)),
      kept_(mostKept),
      opening_(std::make_shared<Opening>(*this)) {
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, &ThumbnailService::giveUp);
}

ThumbnailService::~ThumbnailService() {
    opening_->leave();
}

quint64 ThumbnailService::load(const FilePath& file, QSize points, Answer answer) {
    waiting_.push_back({++lastNumber_, file, points * pixelsPerPoint, std::move(answer), std::nullopt});
    answerSoon();
    return lastNumber_;
}

void ThumbnailService::drop(quint64 request) {
    std::erase_if(waiting_, [request](const Request& waiting) { return waiting.number == request; });
    if (asked_ && asked_->number == request) {
        asked_->answer = nullptr;
        patience_.start(std::min(longestUnwantedWork, patience_.remainingTimeAsDuration()));
    }
}

void ThumbnailService::answerSoon() {
    QMetaObject::invokeMethod(this, &ThumbnailService::answerWaiting, Qt::QueuedConnection);
}

void ThumbnailService::answerWaiting() {
    if (asked_ || waiting_.empty()) {
        return;
    }
    Request request = std::move(waiting_.front());
    waiting_.pop_front();
    ask(std::move(request));
}

void ThumbnailService::ask(Request request) {
    asked_ = std::move(request);
    patience_.start(longestWork);
    opening_->open(asked_->number, asked_->file);
}

void ThumbnailService::handOn(quint64 request, const std::shared_ptr<Opened>& opened) {
    if (!asked_ || asked_->number != request) {
        return; // opened too late
    }
    // If a file cannot be opened any more, its picture is still shown.
    if (const Kept* const kept = kept_.object(key(asked_->file));
        kept && (!opened->file || kept->madeOf == opened->status) && isSmall(asked_->pixels)) {
        finish(kept->picture);
        return;
    }
    const std::optional<int> descriptor = opened->file ? opened->file->descriptor() : std::nullopt;
    if (!descriptor || refused_.contains(opened->status) || !startHelper()) {
        finish({});
        return;
    }
    received_.clear();
    asked_->sent = opened->status;
    const ThumbnailQuestion question{opened->status.size, asked_->pixels.width(), asked_->pixels.height(),
                                     isRaw(asked_->file) ? 1U : 0U};
    if (!helper_->send(bytesOf(question), descriptor)) {
        giveUp();
    }
}

/// A helper that has sent something before it was asked is not trusted any more and is replaced.
bool ThumbnailService::startHelper() {
    if (helper_ && helper_->hasSpoken()) {
        endHelper();
    }
    if (!helper_ && program_) {
        helper_ = HelperProcess::start(*program_);
        if (helper_) {
            listener_ = std::make_unique<QSocketNotifier>(helper_->socket(), QSocketNotifier::Read);
            connect(listener_.get(), &QSocketNotifier::activated, this, &ThumbnailService::receive);
        }
    }
    return helper_.has_value();
}

void ThumbnailService::receive() {
    std::array<std::byte, 64 * 1024> part;
    const std::optional<std::size_t> count = helper_->receiveWhatIsThere(part);
    if (!asked_ || !asked_->sent) {
        endHelper(); // it exited or sent something unasked; the request in preparation gets another helper
        return;
    }
    if (!count) {
        giveUp();
        return;
    }
    received_.append(reinterpret_cast<const char*>(part.data()), static_cast<qsizetype>(*count));
    const ReceivedAnswer answer = decodedAnswer(received_, asked_->pixels);
    if (answer.isDamaged) {
        giveUp();
    } else if (answer.isComplete) {
        finish(answer.picture);
    }
}

void ThumbnailService::giveUp() {
    endHelper();
    if (asked_) {
        finish({});
    }
}

void ThumbnailService::endHelper() {
    if (listener_) {
        listener_->setEnabled(false);
        listener_.release()->deleteLater(); // it may be the caller at this moment
    }
    helper_.reset();
}

void ThumbnailService::finish(const QImage& picture) {
    patience_.stop();
    const Request request = *std::exchange(asked_, std::nullopt);
    if (!picture.isNull() && request.sent && isSmall(request.pixels)) {
        kept_.insert(key(request.file), new Kept{picture, *request.sent});
    } else if (picture.isNull() && request.sent && request.answer) { // the helper was not interrupted
        refused_.add(*request.sent);
    }
    answerSoon();
    if (request.answer) {
        request.answer(picture); // this may destroy the service
    }
}

} // namespace lumeo
