#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <cstdint>

namespace lumeo {

class AppState;
class LocalizationManager;

/// The second screen: the counters of the running scan, and what it found once it is over.
class ScanModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY isScanningChanged)
    Q_PROPERTY(bool isPaused READ isPaused NOTIFY progressChanged)
    Q_PROPERTY(QString photos READ photos NOTIFY progressChanged)
    Q_PROPERTY(QString videos READ videos NOTIFY progressChanged)
    Q_PROPERTY(QString raw READ raw NOTIFY progressChanged)
    Q_PROPERTY(QString supported READ supported NOTIFY progressChanged)
    Q_PROPERTY(QString inspected READ inspected NOTIFY progressChanged)
    Q_PROPERTY(QString unsupported READ unsupported NOTIFY progressChanged)
    Q_PROPERTY(QString errors READ errors NOTIFY progressChanged)
    Q_PROPERTY(bool hasErrors READ hasErrors NOTIFY progressChanged)
    Q_PROPERTY(QString duration READ duration NOTIFY progressChanged)
    Q_PROPERTY(QString currentName READ currentName NOTIFY progressChanged)

    Q_PROPERTY(bool hasItems READ hasItems NOTIFY resultsChanged)
    Q_PROPERTY(QString foundLine READ foundLine NOTIFY resultLinesChanged)
    Q_PROPERTY(QString scannedInLine READ scannedInLine NOTIFY resultLinesChanged)
    Q_PROPERTY(QString photosFound READ photosFound NOTIFY resultsChanged)
    Q_PROPERTY(QString videosFound READ videosFound NOTIFY resultsChanged)
    Q_PROPERTY(QString rawFound READ rawFound NOTIFY resultsChanged)
    Q_PROPERTY(double photosShare READ photosShare NOTIFY resultsChanged)
    Q_PROPERTY(double videosShare READ videosShare NOTIFY resultsChanged)
    Q_PROPERTY(double rawShare READ rawShare NOTIFY resultsChanged)
    Q_PROPERTY(QString duplicates READ duplicates NOTIFY resultsChanged)
    Q_PROPERTY(QString missingDates READ missingDates NOTIFY resultsChanged)
    Q_PROPERTY(QString warnings READ warnings NOTIFY resultsChanged)
    Q_PROPERTY(QString totalSize READ totalSize NOTIFY resultsChanged)
    Q_PROPERTY(bool isAnalyzing READ isAnalyzing NOTIFY isAnalyzingChanged)

public:
    /// Both must outlive the model.
    ScanModel(AppState& state, const LocalizationManager& localization, QObject* parent = nullptr);

    [[nodiscard]] bool isScanning() const;
    [[nodiscard]] bool isPaused() const;
    [[nodiscard]] QString photos() const;
    [[nodiscard]] QString videos() const;
    [[nodiscard]] QString raw() const;
    [[nodiscard]] QString supported() const;
    [[nodiscard]] QString inspected() const;
    [[nodiscard]] QString unsupported() const;
    [[nodiscard]] QString errors() const;
    [[nodiscard]] bool hasErrors() const;
    [[nodiscard]] QString duration() const;
    [[nodiscard]] QString currentName() const;

    [[nodiscard]] bool hasItems() const { return found_.items > 0; }
    [[nodiscard]] QString foundLine() const; ///< how many files were found in how many sources
    [[nodiscard]] QString scannedInLine() const;
    [[nodiscard]] QString photosFound() const;
    [[nodiscard]] QString videosFound() const;
    [[nodiscard]] QString rawFound() const;
    [[nodiscard]] double photosShare() const { return share(found_.photos); }
    [[nodiscard]] double videosShare() const { return share(found_.videos); }
    [[nodiscard]] double rawShare() const { return share(found_.raw); }
    [[nodiscard]] QString duplicates() const;
    [[nodiscard]] QString missingDates() const;
    [[nodiscard]] QString warnings() const;
    [[nodiscard]] QString totalSize() const;
    [[nodiscard]] bool isAnalyzing() const;

    Q_INVOKABLE void pause();
    Q_INVOKABLE void resume();
    Q_INVOKABLE void cancel();
    Q_INVOKABLE void analyzeDuplicates();
    Q_INVOKABLE void changeSources();
    Q_INVOKABLE void organize();

signals:
    void isScanningChanged();
    void progressChanged();
    void resultsChanged();
    void resultLinesChanged();
    void isAnalyzingChanged();

private:
    /// Counted when the screen is shown and for each catalogue that comes while it is, since every count
    /// of the state walks through all of it.
    struct Found {
        std::int64_t items = 0;
        std::int64_t photos = 0;
        std::int64_t videos = 0;
        std::int64_t raw = 0;
        std::int64_t duplicates = 0;
        std::int64_t missingDates = 0;
        std::int64_t warnings = 0;
        std::int64_t bytes = 0;
    };

    void count();
    [[nodiscard]] double share(std::int64_t part) const;

    AppState& state_;
    const LocalizationManager& localization_;
    Found found_;
};

} // namespace lumeo
