#pragma once

#include "platform/FilePath.h"

#include <QImage>
#include <QObject>
#include <QSize>

#include <functional>
#include <memory>

namespace lumeo {

/// Small pictures of media files for the inspector, made one at a time on a thread of the service's own;
/// the last 200 used are kept in memory. Never writes. Main thread only; the program has one.
class ThumbnailService : public QObject {
    Q_OBJECT

public:
    /// Gets a null image when no picture could be made of the file.
    using Answer = std::function<void(QImage)>;

    explicit ThumbnailService(QObject* parent = nullptr);

    /// Stops the work in hand; no answer comes any more.
    ~ThumbnailService() override;

    /// Asks for an upright picture of `file` for a space of `points`, at two pixels a point, shape kept.
    /// A kept picture is the answer whatever size it was made for; a failure is not kept. `answer` is
    /// called once, on the main thread, after load() has returned. Gives the number of the request.
    quint64 load(const FilePath& file, QSize points, Answer answer);

    /// The answer to a request is no longer wanted: it does not come, and its picture is not made unless
    /// that has begun. A request that was answered already is ignored.
    void drop(quint64 request);

private:
    class Worker;
    std::unique_ptr<Worker> worker_;
};

} // namespace lumeo
