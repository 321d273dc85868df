#pragma once

#include "transfer/LastOperationSummary.h"

#include <QMetaType>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace lumeo {

class LocalizationManager;

/// The summary of the last run in the form that its card shows.
struct LastOperationTexts {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(bool isPresent MEMBER isPresent)
    Q_PROPERTY(QString line MEMBER line)
    Q_PROPERTY(QString files MEMBER files)
    Q_PROPERTY(QString transferred MEMBER transferred)
    Q_PROPERTY(QString verified MEMBER verified)
    Q_PROPERTY(QString skipped MEMBER skipped)
    Q_PROPERTY(QString errors MEMBER errors)
    Q_PROPERTY(bool hasErrors MEMBER hasErrors)
    Q_PROPERTY(QString duration MEMBER duration)

public:
    bool isPresent = false;
    QString line; ///< operation, destination and time of completion, in the language of the interface
    QString files;
    QString transferred;
    QString verified;
    QString skipped;
    QString errors;
    bool hasErrors = false;
    QString duration;

    static LastOperationTexts of(const std::optional<LastOperationSummary>& summary,
                                 const LocalizationManager& localization);
};

} // namespace lumeo
