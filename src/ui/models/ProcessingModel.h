#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <cstdint>

namespace lumeo {

class AppState;

/// A run while it goes on: its figures as texts, and the means to hold and to end it.
class ProcessingModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(bool isMove READ isMove NOTIFY planChanged)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY isRunningChanged) ///< paused or not
    Q_PROPERTY(bool isPaused READ isPaused NOTIFY progressChanged)
    Q_PROPERTY(double fraction READ fraction NOTIFY progressChanged) ///< from 0 to 1
    Q_PROPERTY(QString percentage READ percentage NOTIFY progressChanged)
    Q_PROPERTY(QString processedOfTotal READ processedOfTotal NOTIFY progressChanged) ///< "120 / 4000"
    Q_PROPERTY(QString currentName READ currentName NOTIFY progressChanged)
    Q_PROPERTY(QString verified READ verified NOTIFY progressChanged)
    Q_PROPERTY(QString skipped READ skipped NOTIFY progressChanged)
    Q_PROPERTY(QString errors READ errors NOTIFY progressChanged)
    Q_PROPERTY(bool hasErrors READ hasErrors NOTIFY progressChanged)
    Q_PROPERTY(QString transferred READ transferred NOTIFY progressChanged)
    Q_PROPERTY(QString speed READ speed NOTIFY progressChanged)
    Q_PROPERTY(QString remaining READ remaining NOTIFY progressChanged)
    Q_PROPERTY(QString elapsed READ elapsed NOTIFY progressChanged)
    Q_PROPERTY(QString timeLeft READ timeLeft NOTIFY progressChanged)

public:
    /// `state` must outlive this object.
    explicit ProcessingModel(AppState& state, QObject* parent = nullptr);

    [[nodiscard]] bool isMove() const;
    [[nodiscard]] bool isRunning() const;
    [[nodiscard]] bool isPaused() const;
    [[nodiscard]] double fraction() const;
    [[nodiscard]] QString percentage() const;
    [[nodiscard]] QString processedOfTotal() const;
    [[nodiscard]] QString currentName() const;
    [[nodiscard]] QString verified() const;
    [[nodiscard]] QString skipped() const;
    [[nodiscard]] QString errors() const;
    [[nodiscard]] bool hasErrors() const;
    [[nodiscard]] QString transferred() const;
    [[nodiscard]] QString speed() const;
    [[nodiscard]] QString remaining() const;
    [[nodiscard]] QString elapsed() const;
    [[nodiscard]] QString timeLeft() const;

    Q_INVOKABLE void pause();
    Q_INVOKABLE void resume();
    Q_INVOKABLE void cancel();

signals:
    void planChanged();
    void isRunningChanged();
    void progressChanged();

private:
    void followRun();
    void followProgress();
    [[nodiscard]] std::int64_t total() const;

    AppState& state_;
    QTimer clock_;                ///< a run tells of itself after each file, which may be a large one
    double publishedSeconds_ = 0; ///< how long the run had taken when it last told
    QElapsedTimer sincePublished_;
};

} // namespace lumeo
