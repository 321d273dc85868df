#pragma once

#include "platform/FilePath.h"

#include <QByteArray>
#include <QCache>
#include <QImage>
#include <QObject>
#include <QProcess>
#include <QSize>
#include <QTimer>

#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <optional>

namespace lumeo {

/// Small pictures of media files for the inspector; the last 200 used are kept in memory. They are made
/// one at a time by a helper process, which is started when first needed: a file that brings a decoder
/// down, hangs it or eats memory costs its picture only. Never writes. Main thread only; the program has
/// one.
class ThumbnailService : public QObject {
    Q_OBJECT

public:
    /// Gets a null image when no picture could be made of the file.
    using Answer = std::function<void(QImage)>;

    explicit ThumbnailService(QObject* parent = nullptr);

    /// With another helper than the one that comes with the program.
    explicit ThumbnailService(QString helper, QObject* parent = nullptr);

    /// Ends the helper; no answer comes any more.
    ~ThumbnailService() override;

    /// Asks for an upright picture of `file` for a space of `points`, at two pixels a point, shape kept.
    /// A kept picture is the answer whatever size it was made for; a failure is not kept. `answer` is
    /// called once, on the main thread, after load() has returned. Gives the number of the request.
    quint64 load(const FilePath& file, QSize points, Answer answer);

    /// The answer to a request is no longer wanted and does not come. Work on it stops soon. A request
    /// that was answered already is ignored.
    void drop(quint64 request);

private:
    struct Request {
        quint64 number = 0;
        FilePath file;
        QSize pixels;
        Answer answer; ///< empty once dropped
    };

    void answerSoon();
    void answerWaiting();
    void ask(Request request);
    void startHelper();
    void receive();
    void endHelper();
    void leaveHelper();
    void finish(const QImage& picture);

    QString helperProgram_;
    quint64 lastNumber_ = 0;
    std::deque<Request> waiting_;
    std::optional<Request> asked_; ///< the one that the helper works on
    QCache<QByteArray, QImage> kept_;
    std::unique_ptr<QProcess> helper_;
    std::list<std::unique_ptr<QProcess>> left_; ///< killed helpers, until they have ended
    QByteArray received_;
    QTimer patience_;
};

} // namespace lumeo
