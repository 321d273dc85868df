#include "ui/models/SourceCards.h"

#include "ui/models/ShownText.h"

#include <algorithm>

namespace lumeo {
namespace {

QString symbolOf(const SourceVolume& source) {
    if (source.isRemovable) {
        return QStringLiteral("externaldrive.fill");
    }
    return source.isVolumeRoot ? QStringLiteral("internaldrive.fill") : QStringLiteral("folder.fill");
}

} // namespace

void SourceCards::show(const std::vector<SourceVolume>& sources) {
    for (int row = rowCount() - 1; row >= 0; --row) {
        const auto place = sources_.begin() + row;
        const auto shown = std::ranges::find(sources, place->id, &SourceVolume::id);
        if (shown == sources.end()) {
            beginRemoveRows({}, row, row);
            sources_.erase(place);
            endRemoveRows();
        } else if (*shown != *place) {
            *place = *shown;
            emit dataChanged(index(row), index(row));
        }
    }
    if (sources.size() > sources_.size()) {
        beginInsertRows({}, rowCount(), static_cast<int>(sources.size()) - 1);
        sources_ = sources;
        endInsertRows();
    }
}

const SourceVolume& SourceCards::source(int row) const {
    return sources_.at(static_cast<std::size_t>(row));
}

int SourceCards::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(sources_.size());
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
        return symbolOf(source);
    case isRemovableRole:
        return source.isRemovable;
    case capacityTextRole:
        return shownText(source.formattedCapacitySummary().value_or(""));
    case usedShareRole:
        return source.usagePercentage().value_or(-1);
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
    };
}

} // namespace lumeo
