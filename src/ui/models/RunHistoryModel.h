#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "platform/FilePath.h"

namespace lumeo {

class AppState;
class LocalizationManager;

/// The earlier runs that can be undone: the last completed one, and one that was cut off or cancelled.
/// Nothing is offered during a run or an undo.
class RunHistoryModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(bool canUndoCompleted READ canUndoCompleted NOTIFY changed)
    /// "Interrupted on May 12, 2026: 120 of 4,000 files moved". Empty when there is no such run.
    Q_PROPERTY(QString interrupted READ interrupted NOTIFY changed)
    Q_PROPERTY(bool showUndoAlert READ showUndoAlert NOTIFY alertChanged)
    Q_PROPERTY(QString forecast READ forecast NOTIFY alertChanged) ///< what the undo would leave in place

public:
    /// Both must outlive the model.
    RunHistoryModel(AppState& state, const LocalizationManager& localization, QObject* parent = nullptr);

    [[nodiscard]] bool canUndoCompleted() const;
    [[nodiscard]] QString interrupted() const;
    [[nodiscard]] bool showUndoAlert() const { return !considered_.empty(); }
    [[nodiscard]] QString forecast() const;

    Q_INVOKABLE void considerCompleted(); ///< asks whether to undo it
    Q_INVOKABLE void considerInterrupted();
    Q_INVOKABLE void confirmUndo(); ///< does nothing unless the question was asked
    Q_INVOKABLE void keep();        ///< the other answer
    Q_INVOKABLE void dismissInterrupted();

signals:
    void changed();
    void alertChanged();

private:
    void consider(const FilePath& journal);

    AppState& state_;
    const LocalizationManager& localization_;
    FilePath considered_; ///< the journal that the question is about; empty when there is no question
};

} // namespace lumeo
