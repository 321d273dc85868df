#include "ui/thumbnails/ThumbnailService.h"

#include "ui/thumbnails/HelperPipe.h"

#include <QCoreApplication>
#include <QPointer>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <tuple>
#include <utility>

namespace lumeo {
namespace {

using namespace std::chrono_literals;

constexpr int mostKept = 200;
constexpr int pixelsPerPoint = 2;
constexpr auto longestWork = 15s;
constexpr auto longestUnwantedWork = 300ms; // long enough for most files, whose picture is then kept
constexpr auto longestGoodbye = 1000ms;     // a killed helper ends at once, unless its disk does not answer

/// Beside the program, as in a build, or where it is installed.
QString installedHelper() {
    const QString name = QStringLiteral("lumeo-thumbnailer");
    const QString folder = QCoreApplication::applicationDirPath();
    return QStandardPaths::findExecutable(name, {folder, folder + QStringLiteral("/../libexec/lumeo")});
}

QByteArray key(const FilePath& file) {
    return QByteArray::fromStdString(file.bytes());
}

} // namespace

ThumbnailService::ThumbnailService(QObject* parent) : ThumbnailService(installedHelper(), parent) {}

ThumbnailService::ThumbnailService(QString helper, QObject* parent)
    : QObject(parent), helperProgram_(std::move(helper)), kept_(mostKept) {
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, &ThumbnailService::endHelper);
}

ThumbnailService::~ThumbnailService() {
    if (helper_) {
        leaveHelper();
    }
    for (auto& left : left_) {
        left->disconnect(this);
        if (left->state() != QProcess::NotRunning && !left->waitForFinished(longestGoodbye.count())) {
            std::ignore = left.release(); // its own end would wait for the helper's
        }
    }
}

quint64 ThumbnailService::load(const FilePath& file, QSize points, Answer answer) {
    waiting_.push_back({++lastNumber_, file, points * pixelsPerPoint, std::move(answer)});
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
    if (const QImage* const kept = kept_.object(key(request.file))) {
        answerSoon();
        request.answer(*kept); // which may end this service
    } else {
        ask(std::move(request));
    }
}

void ThumbnailService::ask(Request request) {
    asked_ = std::move(request);
    received_.clear();
    if (!helper_) {
        startHelper();
    }
    if (helper_) { // still: it may have failed on the spot
        patience_.start(longestWork);
        helper_->write(encodedQuestion(asked_->file.bytes(), asked_->pixels));
    }
}

void ThumbnailService::startHelper() {
    helper_ = std::make_unique<QProcess>();
    helper_->setStandardErrorFile(QProcess::nullDevice());
    connect(helper_.get(), &QProcess::readyReadStandardOutput, this, &ThumbnailService::receive);
    connect(helper_.get(), &QProcess::finished, this, &ThumbnailService::endHelper);
    connect(helper_.get(), &QProcess::errorOccurred, this, &ThumbnailService::endHelper);
    helper_->start(helperProgram_, QStringList());
}

void ThumbnailService::receive() {
    received_ += helper_->readAllStandardOutput();
    if (!asked_) {
        return;
    }
    const ReceivedAnswer answer = decodedAnswer(received_, asked_->pixels);
    if (answer.isDamaged) {
        endHelper();
    } else if (answer.isComplete) {
        finish(answer.picture);
    }
}

void ThumbnailService::endHelper() {
    if (helper_) {
        leaveHelper();
    }
    if (asked_) {
        finish({});
    }
}

/// Its end is not waited for: it may be hanging on a disk that does not answer.
void ThumbnailService::leaveHelper() {
    helper_->disconnect(this);
    const QProcess* const left = left_.emplace_back(std::move(helper_)).get();
    const auto forget = [this, left] {
        std::erase_if(left_, [left](const auto& process) { return process.get() == left; });
    };
    if (left->state() == QProcess::NotRunning) {
        QMetaObject::invokeMethod(this, forget, Qt::QueuedConnection); // it may be speaking at this moment
        return;
    }
    connect(left, &QProcess::finished, this, forget, Qt::QueuedConnection);
    left_.back()->kill();
}

void ThumbnailService::finish(const QImage& picture) {
    patience_.stop();
    const Request request = *std::exchange(asked_, std::nullopt);
    if (!picture.isNull()) {
        kept_.insert(key(request.file), new QImage(picture));
    }
    answerSoon();
    if (request.answer) {
        request.answer(picture); // which may end this service
    }
}

} // namespace lumeo
