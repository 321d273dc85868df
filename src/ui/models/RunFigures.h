#pragma once

#include "transfer/OperationProgress.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <cstdint>

namespace lumeo {

/// The figures of a run in progress, as they are shown.
struct RunFigures {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(bool isPaused MEMBER isPaused)
    Q_PROPERTY(double fraction MEMBER fraction)
    Q_PROPERTY(QString percentage MEMBER percentage)
    Q_PROPERTY(QString processedOfTotal MEMBER processedOfTotal)
    Q_PROPERTY(QString currentName MEMBER currentName)
    Q_PROPERTY(QString verified MEMBER verified)
    Q_PROPERTY(QString skipped MEMBER skipped)
    Q_PROPERTY(QString errors MEMBER errors)
    Q_PROPERTY(bool hasErrors MEMBER hasErrors)
    Q_PROPERTY(QString transferred MEMBER transferred)
    Q_PROPERTY(QString speed MEMBER speed)
    Q_PROPERTY(QString remaining MEMBER remaining)
    Q_PROPERTY(QString elapsed MEMBER elapsed)
    Q_PROPERTY(QString timeLeft MEMBER timeLeft)

public:
    bool isPaused = false;
    double fraction = 0; ///< from 0 to 1
    QString percentage;
    QString processedOfTotal; ///< "120 / 4000"
    QString currentName;
    QString verified;
    QString skipped;
    QString errors;
    bool hasErrors = false;
    QString transferred;
    QString speed;
    QString remaining;
    QString elapsed;
    QString timeLeft;

    /// `total` and `elapsedSeconds` may be more current than the run's latest progress.
    static RunFigures of(const OperationProgress& progress, std::int64_t total, double elapsedSeconds);
};

} // namespace lumeo
