#pragma once

#include "app/AppState.h"

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
        isGoneRole,       ///< nothing is at its place any more
    };

    using QAbstractListModel::QAbstractListModel;

    /// A card that stays keeps its delegate, and so the keyboard focus.
    void show(const AppState& state);

    /// The row must exist.
    [[nodiscard]] const SourceVolume& source(int row) const { return card(row).source; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    struct Card {
        SourceVolume source;
        SourcePresence presence = SourcePresence::unknown;
        friend bool operator==(const Card&, const Card&) = default;
    };

    [[nodiscard]] const Card& card(int row) const { return cards_.at(static_cast<std::size_t>(row)); }
    static QString symbolOf(const Card& card);

    std::vector<Card> cards_;
};

} // namespace lumeo
