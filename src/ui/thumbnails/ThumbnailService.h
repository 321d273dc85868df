#pragma once

#include "media/helper/HelperProcess.h"
#include "media/helper/RefusedFiles.h"
#include "platform/FilePath.h"
#include "platform/FileSystem.h"

#include <QByteArray>
#include <QCache>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QSocketNotifier>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace lumeo {

/// Small pictures of media files for the inspector. The last 200 used are kept in memory. A caged helper
/// process makes them one at a time; it is started when it is first needed. A file that crashes a decoder,
/// hangs it or fills its memory costs only its own picture, and only once. Never writes. Main thread only.
/// The program has one service.
class ThumbnailService : public QObject {
    Q_OBJECT

public:
    /// Gets a null image when no picture could be made.
    using Answer = std::function<void(QImage)>;

    explicit ThumbnailService(QObject* parent = nullptr);

    /// Uses another helper than the installed one. If it is absent, no picture is made.
    explicit ThumbnailService(std::optional<FilePath> helper, QObject* parent = nullptr);

    /// Ends the helper. No answer comes after this.
    ~ThumbnailService() override;

    /// Requests an upright picture of `file` that fits a space of `points`, with two pixels for each point. A
    /// kept picture is the answer until the file changes, whatever size it was made for. A picture of more
    /// than 512 pixels is always made again and not kept. A file that gave no picture is not tried again
    /// until it changes. `answer` is called once, on the main thread, after load() has returned. Returns the
    /// number of the request.
    quint64 load(const FilePath& file, QSize points, Answer answer);

    /// The answer to a request is no longer wanted and will not come. Work on it stops soon. Does nothing for
    /// a request that was already answered.
    void drop(quint64 request);

private:
    struct Request {
        quint64 number = 0;
        FilePath file;
        QSize pixels;
        Answer answer;                  ///< empty after drop()
        std::optional<FileStatus> sent; ///< of the file that was sent to the helper
    };
    struct Kept {
        QImage picture;
        FileStatus madeOf; ///< if the file's status differs, a new picture is made
    };
    struct Opened {
        std::unique_ptr<ReadableFile> file;
        FileStatus status;
    };
    class Opening;

    void answerSoon();
    void answerWaiting();
    void ask(Request request);
    void handOn(quint64 request, const std::shared_ptr<Opened>& opened);
    bool startHelper();
    void receive();
    void giveUp();
    void endHelper();
    void finish(const QImage& picture);

    std::optional<FilePath> program_;
    quint64 lastNumber_ = 0;
    std::deque<Request> waiting_;
    std::optional<Request> asked_; ///< the one in progress
    QCache<QByteArray, Kept> kept_;
    RefusedFiles refused_;
    std::shared_ptr<Opening> opening_;
    std::optional<HelperProcess> helper_;
    std::unique_ptr<QSocketNotifier> listener_;
    QByteArray received_;
    QTimer patience_;
};

} // namespace lumeo
