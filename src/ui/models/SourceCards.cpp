#include "ui/models/SourceCards.h"

#include "ui/models/ShownText.h"

#include <algorithm>

namespace lumeo {

QString SourceCards::symbolOf(const Card& card) {
    if (card.presence == SourcePresence::file) {
        return QStringLiteral("photo");
    }
    if (card.source.isRemovable) {
        return QStringLiteral("externaldrive.fill");
    }
    return card.source.isVolumeRoot ? QStringLiteral("internaldrive.fill") : QStringLiteral("folder.fill");
}

void SourceCards::show(const AppState& state) {
    const std::vector<SourceVolume>& sources = state.sources();
    for (int row = rowCount() - 1; row >= 0; --row) {
        const auto place = cards_.begin() + row;
        const auto shown = std::ranges::find(sources, place->source.id, &SourceVolume::id);
        if (shown == sources.end()) {
            beginRemoveRows({}, row, row);
            cards_.erase(place);
            endRemoveRows();
        } else if (Card card{*shown, state.presence(shown->id)}; card != *place) {
            *place = std::move(card);
            emit dataChanged(index(row), index(row));
        }
    }
    if (sources.size() > cards_.size()) {
        beginInsertRows({}, rowCount(), static_cast<int>(sources.size()) - 1);
        for (std::size_t row = cards_.size(); row < sources.size(); ++row) {
            cards_.push_back({sources[row], state.presence(sources[row].id)});
        }
        endInsertRows();
    }
}

int SourceCards::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(cards_.size());
}

QVariant SourceCards::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto& source = this->source(index.row());
    switch (role) {
    case nameRole:
        return shownText(source.name);
    case pathRole:
        return shownPath(source.url);
    case symbolRole:
        return symbolOf(card(index.row()));
    case isRemovableRole:
        return source.isRemovable;
    case capacityTextRole:
        return shownText(source.formattedCapacitySummary().value_or(""));
    case usedShareRole:
        return source.usagePercentage().value_or(-1);
    case isGoneRole:
        return card(index.row()).presence == SourcePresence::gone;
    default:
        return {};
    }
}

QHash<int, QByteArray> SourceCards::roleNames() const {
    return {
        {nameRole, "name"},
        {pathRole, "path"},
        {symbolRole, "symbol"},
        {isRemovableRole, "isRemovable"},
        {capacityTextRole, "capacityText"},
        {usedShareRole, "usedShare"},
        {isGoneRole, "isGone"},
    };
}

} // namespace lumeo
