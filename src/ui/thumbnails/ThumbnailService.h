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

/// Small pictures of media files for the inspector; the last 200 used are kept in memory. They are made
/// one at a time by a caged helper process, which is started when first needed: a file that brings a decoder
/// down, hangs it or eats memory costs its picture only, and costs it once. Never writes. Main thread only;
/// the program has one.
class ThumbnailService : public QObject {
    Q_OBJECT

public:
    /// Gets a null image when no picture could be made of the file.
    using Answer = std::function<void(QImage)>;

    explicit ThumbnailService(QObject* parent = nullptr);

    /// With another helper than the one that comes with the program; absent, no picture is made.
    explicit ThumbnailService(std::optional<FilePath> helper, QObject* parent = nullptr);

    /// Ends the helper; no answer comes any more.
    ~ThumbnailService() override;

    /// Asks for an upright picture of `file` for a space of `points`, at two pixels a point, shape kept.
    /// A kept picture is the answer whatever size it was made for. Of a file that gave none, no picture is
    /// tried again until it changes. `answer` is called once, on the main thread, after load() has returned.
    /// Gives the number of the request.
    quint64 load(const FilePath& file, QSize points, Answer answer);

    /// The answer to a request is no longer wanted and does not come. Work on it stops soon. A request
    /// that was answered already is ignored.
    void drop(quint64 request);

private:
    struct Request {
        quint64 number = 0;
        FilePath file;
        QSize pixels;
        Answer answer;                  ///< empty once dropped
        std::optional<FileStatus> sent; ///< of the file that the helper has been handed
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
    std::optional<Request> asked_; ///< the one that is worked on
    QCache<QByteArray, QImage> kept_;
    RefusedFiles refused_;
    std::shared_ptr<Opening> opening_;
    std::optional<HelperProcess> helper_;
    std::unique_ptr<QSocketNotifier> listener_;
    QByteArray received_;
    QTimer patience_;
};

} // namespace lumeo
