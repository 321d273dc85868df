#include "ui/models/PreviewRows.h"

#include "dates/LUMEODateFormatters.h"
#include "platform/FilePath.h"
#include "ui/models/MediaItemTexts.h"
#include "ui/models/ShownText.h"

#include <algorithm>

namespace lumeo {

PreviewRows::PreviewRows(QObject* parent)
    : QAbstractListModel(parent), items_(std::make_shared<const std::vector<MediaItem>>()) {}

void PreviewRows::setItems(AppState::Items items) {
    std::vector<std::uint32_t> visible = visibleItems(*items, filter_, search_);
    if (items->size() == items_->size() && visible == visible_ && !visible.empty()) {
        // Only plans or dates have changed, so the view keeps its position in the list.
        items_ = std::move(items);
        emit dataChanged(index(0), index(count() - 1));
        return;
    }
    beginResetModel();
    items_ = std::move(items);
    visible_ = std::move(visible);
    endResetModel();
    emit countChanged();
}

void PreviewRows::setFilter(PreviewFilter filter) {
    if (filter != filter_) {
        filter_ = filter;
        show(visibleItems(*items_, filter_, search_));
    }
}

void PreviewRows::setSearch(const QString& text) {
    NameSearch search(text);
    const bool isNarrower = search.isNarrowerThan(search_);
    search_ = std::move(search);
    show(isNarrower ? narrowed(visible_, *items_, search_) : visibleItems(*items_, filter_, search_));
}

void PreviewRows::show(std::vector<std::uint32_t> visible) {
    if (visible == visible_) {
        return;
    }
    beginResetModel();
    visible_ = std::move(visible);
    endResetModel();
    emit countChanged();
}

std::size_t PreviewRows::itemIndex(int row) const {
    return visible_[static_cast<std::size_t>(row)];
}

std::optional<int> PreviewRows::rowOf(std::size_t itemIndex) const {
    const auto found = std::ranges::lower_bound(visible_, itemIndex);
    if (found == visible_.end() || *found != itemIndex) {
        return std::nullopt;
    }
    return static_cast<int>(found - visible_.begin());
}

int PreviewRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant PreviewRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const MediaItem& item = (*items_)[itemIndex(index.row())];
    switch (role) {
    case fileNameRole:
        return shownText(item.fileName());
    case symbolRole:
        return symbolName(item.mediaType);
    case dateRole:
        return shownText(LUMEODateFormatters::formattedMedium(item.resolvedDate));
    case isDatedRole:
        return item.resolvedDate.hasValue();
    case dateSourceRole:
        return shownEnglish(userFriendlyLabel(item.dateSource));
    case confidenceRole:
        return shownText(userFriendlyLabel(item.dateConfidence));
    case confidenceTintRole:
        return tintName(item.dateConfidence);
    case destinationRole:
        return destinationText(item.plannedDestinationURL);
    default:
        return {};
    }
}

QHash<int, QByteArray> PreviewRows::roleNames() const {
    return {
        {fileNameRole, "fileName"},
        {symbolRole, "symbol"},
        {dateRole, "date"},
        {isDatedRole, "isDated"},
        {dateSourceRole, "dateSource"},
        {confidenceRole, "confidence"},
        {confidenceTintRole, "confidenceTint"},
        {destinationRole, "destination"},
    };
}

} // namespace lumeo
