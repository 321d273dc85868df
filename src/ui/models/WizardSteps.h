#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

class AppState;

/// The six steps of the wizard for the header. Main thread only.
class WizardSteps : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")

public:
    enum Role {
        labelKeyRole = Qt::UserRole, ///< "labelKey": the key of the label's text
        symbolRole,                  ///< "symbolName"
        tintRole,                    ///< "tint": the name of the step's colour
        isCurrentRole,               ///< "isCurrent"
        isCompletedRole,             ///< "isCompleted"
        isReachableRole,             ///< "isReachable": the user may go there now
    };

    explicit WizardSteps(const AppState& state, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The name of a step's colour.
    [[nodiscard]] static QString tint(int step);

private:
    void announce();

    const AppState& state_;
};

} // namespace lumeo
