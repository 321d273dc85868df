#pragma once

#include "model/SourceVolume.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace lumeo {

class LocalizationManager;

/// The texts and figures of the destination and its free space.
struct DestinationTexts {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(bool isChosen MEMBER isChosen)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString path MEMBER path)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString capacityLine MEMBER capacityLine)
    Q_PROPERTY(bool lacksRoom MEMBER lacksRoom)
    Q_PROPERTY(bool hasCapacity MEMBER hasCapacity)
    Q_PROPERTY(double usedShare MEMBER usedShare)
    Q_PROPERTY(double addedShare MEMBER addedShare)

public:
    bool isChosen = false;
    QString name;
    QString path;
    QString symbol;
    QString capacityLine;
    bool lacksRoom = false; ///< false while the free space is unknown
    bool hasCapacity = false;
    double usedShare = 0; ///< of the whole volume, like addedShare
    double addedShare = 0;

    static DestinationTexts of(const std::optional<SourceVolume>& volume, std::int64_t estimatedBytes,
                               const LocalizationManager& texts);
};

} // namespace lumeo
