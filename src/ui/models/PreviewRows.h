#pragma once

#include "ui/models/PreviewFilter.h"

#include "app/AppState.h"
#include "ui/models/NameSearch.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <vector>

namespace lumeo {

/// The rows of the preview's table: the items of a catalogue that pass a filter and a search, in the
/// catalogue's order. It keeps an index for each row but no text; the texts are made when a row is shown.
class PreviewRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the preview's model")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        fileNameRole = Qt::UserRole + 1,
        symbolRole,
        dateRole,
        isDatedRole,
        dateSourceRole,
        confidenceRole,
        confidenceTintRole,
        destinationRole,
    };

    explicit PreviewRows(QObject* parent = nullptr);

    void setItems(AppState::Items items); ///< never null; filter and search stay
    void setFilter(PreviewFilter filter);
    void setSearch(const QString& text);

    [[nodiscard]] const std::vector<MediaItem>& items() const { return *items_; }
    [[nodiscard]] PreviewFilter filter() const { return filter_; }
    [[nodiscard]] std::size_t itemIndex(int row) const;
    [[nodiscard]] std::optional<int> rowOf(std::size_t itemIndex) const; ///< absent when not listed

    [[nodiscard]] int count() const { return static_cast<int>(visible_.size()); }
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

private:
    void show(std::vector<std::uint32_t> visible);

    AppState::Items items_;
    PreviewFilter filter_ = PreviewFilter::all;
    NameSearch search_;
    std::vector<std::uint32_t> visible_; ///< indices into items_, in rising order
};

} // namespace lumeo
