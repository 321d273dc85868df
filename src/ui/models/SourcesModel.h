#pragma once

#include "ui/models/LastOperationTexts.h"
#include "ui/models/RunHistoryModel.h"
#include "ui/models/SourceCards.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

class AppState;
class LocalizationManager;

/// The first screen: the folders to scan, and what the last run did.
class SourcesModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(lumeo::SourceCards* cards READ cards CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY sourcesChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY sourcesChanged)
    Q_PROPERTY(bool canScan READ canScan NOTIFY canScanChanged)
    Q_PROPERTY(QString missing READ missing NOTIFY canScanChanged)
    Q_PROPERTY(lumeo::RunHistoryModel* history READ history CONSTANT)
    Q_PROPERTY(lumeo::LastOperationTexts lastOperation READ lastOperation NOTIFY lastOperationChanged)

public:
    /// Both must outlive the model.
    SourcesModel(AppState& state, const LocalizationManager& localization, QObject* parent = nullptr);

    [[nodiscard]] SourceCards* cards() { return &cards_; }
    [[nodiscard]] RunHistoryModel* history() { return &history_; }
    [[nodiscard]] int count() const { return cards_.rowCount(); }
    [[nodiscard]] QString countText() const;
    [[nodiscard]] bool canScan() const;    ///< always false during a run or an undo
    [[nodiscard]] QString missing() const; ///< why a scan cannot start; empty when it can
    [[nodiscard]] const LastOperationTexts& lastOperation() const { return lastOperation_; }

    /// True when the list names at least one file or folder of this machine. `uriList` has the unchanged
    /// bytes of a dragged "text/uri-list", because paths need not be text.
    Q_INVOKABLE [[nodiscard]] bool takes(const QByteArray& uriList) const;
    /// Adds every file and folder that the list names and ignores everything else.
    Q_INVOKABLE void drop(const QByteArray& uriList);
    Q_INVOKABLE void chooseFolders();
    Q_INVOKABLE void remove(int row);
    Q_INVOKABLE void clear();
    Q_INVOKABLE void scan();

signals:
    void sourcesChanged();
    void canScanChanged();
    void lastOperationChanged();

private:
    void showSources();
    void showLastOperation();

    AppState& state_;
    const LocalizationManager& localization_;
    SourceCards cards_;
    RunHistoryModel history_;
    LastOperationTexts lastOperation_;
};

} // namespace lumeo
