#pragma once

#include "ui/models/RunFigures.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

class AppState;

/// The run in progress: its figures, and the commands to pause and to end it.
class ProcessingModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(bool isMove READ isMove NOTIFY planChanged)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY isRunningChanged) ///< paused or not
    Q_PROPERTY(lumeo::RunFigures figures READ figures NOTIFY figuresChanged)

public:
    /// `state` must outlive this object.
    explicit ProcessingModel(AppState& state, QObject* parent = nullptr);

    [[nodiscard]] bool isMove() const;
    [[nodiscard]] bool isRunning() const;
    [[nodiscard]] const RunFigures& figures() const { return figures_; }

    Q_INVOKABLE void pause();
    Q_INVOKABLE void resume();
    Q_INVOKABLE void cancel();

signals:
    void planChanged();
    void isRunningChanged();
    void figuresChanged();

private:
    void followRun();
    void followProgress();
    void show();

    AppState& state_;
    RunFigures figures_;
    QTimer clock_;                ///< a run reports only after each file, and a file may be large
    double publishedSeconds_ = 0; ///< how long the run had taken at its last report
    QElapsedTimer sincePublished_;
};

} // namespace lumeo
