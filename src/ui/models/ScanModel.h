#pragma once

#include "ui/models/ScanFigures.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

class AppState;
class LocalizationManager;

/// The second screen: the counters of the running scan, and then its results.
class ScanModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY isScanningChanged)
    Q_PROPERTY(lumeo::ScanCounters counters READ counters NOTIFY countersChanged)
    Q_PROPERTY(lumeo::ScanFindings findings READ findings NOTIFY findingsChanged)
    Q_PROPERTY(bool isAnalyzing READ isAnalyzing NOTIFY isAnalyzingChanged)

public:
    /// Both must outlive the model.
    ScanModel(AppState& state, const LocalizationManager& localization, QObject* parent = nullptr);

    [[nodiscard]] bool isScanning() const;
    [[nodiscard]] const ScanCounters& counters() const { return counters_; }
    [[nodiscard]] const ScanFindings& findings() const { return findings_; }
    [[nodiscard]] bool isAnalyzing() const;

    Q_INVOKABLE void pause();
    Q_INVOKABLE void resume();
    Q_INVOKABLE void cancel();
    Q_INVOKABLE void analyzeDuplicates();
    Q_INVOKABLE void copyUnreadable() const;
    Q_INVOKABLE void changeSources();
    Q_INVOKABLE void organize();

signals:
    void isScanningChanged();
    void countersChanged();
    void findingsChanged();
    void isAnalyzingChanged();

private:
    void followScan();
    void count();
    void showCounters();
    void showFindings();

    AppState& state_;
    const LocalizationManager& localization_;
    std::size_t sources_ = 0; ///< of the last scan
    CatalogueCounts counts_;
    ScanCounters counters_;
    ScanFindings findings_;
};

} // namespace lumeo
