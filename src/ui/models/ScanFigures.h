#pragma once

#include "app/CatalogueCounts.h"
#include "scan/ScanProgress.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

class AppState;
class LocalizationManager;

/// The counters of a scan as they are shown.
struct ScanCounters {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(bool isPaused MEMBER isPaused)
    Q_PROPERTY(QString photos MEMBER photos)
    Q_PROPERTY(QString videos MEMBER videos)
    Q_PROPERTY(QString raw MEMBER raw)
    Q_PROPERTY(QString supported MEMBER supported)
    Q_PROPERTY(QString inspected MEMBER inspected)
    Q_PROPERTY(QString unsupported MEMBER unsupported)
    Q_PROPERTY(QString errors MEMBER errors)
    Q_PROPERTY(bool hasErrors MEMBER hasErrors)
    Q_PROPERTY(QString duration MEMBER duration)
    Q_PROPERTY(QString currentName MEMBER currentName)

public:
    bool isPaused = false;
    QString photos;
    QString videos;
    QString raw;
    QString supported;
    QString inspected;
    QString unsupported;
    QString errors;
    bool hasErrors = false;
    QString duration;
    QString currentName;

    static ScanCounters of(const ScanProgress& progress);
};

/// The results of a scan as they are shown.
struct ScanFindings {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(bool hasItems MEMBER hasItems)
    Q_PROPERTY(QString foundLine MEMBER foundLine)
    Q_PROPERTY(QString scannedInLine MEMBER scannedInLine)
    Q_PROPERTY(QString photos MEMBER photos)
    Q_PROPERTY(QString videos MEMBER videos)
    Q_PROPERTY(QString raw MEMBER raw)
    Q_PROPERTY(double photosShare MEMBER photosShare)
    Q_PROPERTY(double videosShare MEMBER videosShare)
    Q_PROPERTY(double rawShare MEMBER rawShare)
    Q_PROPERTY(QString duplicates MEMBER duplicates)
    Q_PROPERTY(bool isAnalyzed MEMBER isAnalyzed)
    Q_PROPERTY(QString unreadableTitle MEMBER unreadableTitle)
    Q_PROPERTY(QStringList unreadable MEMBER unreadable)
    Q_PROPERTY(QString missingDates MEMBER missingDates)
    Q_PROPERTY(QString warnings MEMBER warnings)
    Q_PROPERTY(QString totalSize MEMBER totalSize)

public:
    bool hasItems = false;
    QString foundLine; ///< the number of files and of sources
    QString scannedInLine;
    QString photos;
    QString videos;
    QString raw;
    double photosShare = 0; ///< of all items, from 0 to 1
    double videosShare = 0;
    double rawShare = 0;
    QString duplicates;      ///< a dash until they were searched
    bool isAnalyzed = false; ///< duplicates were searched
    QString unreadableTitle; ///< "3 places could not be read"; empty when all could
    QStringList unreadable;  ///< each with the system's reason; not all when there are very many
    QString missingDates;
    QString warnings;
    QString totalSize;

    static ScanFindings of(const CatalogueCounts& counts, std::size_t sources, const AppState& state,
                           const LocalizationManager& texts);
};

} // namespace lumeo
