#pragma once

#include "model/MediaItem.h"

#include <QImage>
#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace lumeo {

class ThumbnailService;

/// Everything that is known about one item of the catalogue, and its picture. The texts are always in
/// English.
class InspectorModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the preview's model")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY itemChanged)
    Q_PROPERTY(QString symbol READ symbol NOTIFY itemChanged)
    /// {heading, rows: [{label, value, isPath}]}
    Q_PROPERTY(QVariantList sections READ sections NOTIFY itemChanged)
    Q_PROPERTY(QStringList warnings READ warnings NOTIFY itemChanged)
    Q_PROPERTY(QStringList errors READ errors NOTIFY itemChanged)
    Q_PROPERTY(QImage picture READ picture NOTIFY pictureChanged)
    Q_PROPERTY(bool isLoadingPicture READ isLoadingPicture NOTIFY pictureChanged)

public:
    /// `thumbnails` must outlive this object.
    explicit InspectorModel(ThumbnailService& thumbnails, QObject* parent = nullptr);
    ~InspectorModel() override;

    /// Shows an item. If it is shown already, its picture stays.
    void open(const MediaItem& item);
    /// The texts stay until another item is shown, because the panel takes time to close.
    Q_INVOKABLE void close();

    [[nodiscard]] const std::optional<MediaItem>& item() const { return item_; } ///< the last one shown
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] QString symbol() const;
    [[nodiscard]] QVariantList sections() const;
    [[nodiscard]] QStringList warnings() const;
    [[nodiscard]] QStringList errors() const;
    [[nodiscard]] const QImage& picture() const { return picture_; }
    [[nodiscard]] bool isLoadingPicture() const { return request_.has_value(); }

signals:
    void itemChanged();
    void pictureChanged();

private:
    void loadPicture();
    void cancelPicture();

    ThumbnailService& thumbnails_;
    std::optional<MediaItem> item_;
    bool isOpen_ = false;
    QImage picture_;
    std::optional<quint64> request_; ///< in progress
};

} // namespace lumeo
