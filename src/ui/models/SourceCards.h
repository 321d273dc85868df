#pragma once

#include "model/SourceVolume.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace lumeo {

/// The chosen sources as cards, in the order in which they were added.
class SourceCards : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")

public:
    enum Role {
        nameRole = Qt::UserRole,
        pathRole,
        symbolRole,
        isRemovableRole,
        capacityTextRole, ///< empty when the capacity is unknown
        usedShareRole,    ///< from 0 to 1, -1 when unknown
    };

    using QAbstractListModel::QAbstractListModel;

    /// A card that stays keeps its delegate, and so the keyboard focus.
    void show(const std::vector<SourceVolume>& sources);

    /// The row must exist.
    [[nodiscard]] const SourceVolume& source(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<SourceVolume> sources_;
};

} // namespace lumeo
