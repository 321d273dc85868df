#pragma once

#include "app/Desktop.h"
#include "model/MediaItem.h"

#include <QImage>
#include <QObject>
#include <QSizeF>
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
    Q_PROPERTY(QString name READ name NOTIFY itemChanged) ///< of the file
    Q_PROPERTY(QImage picture READ picture NOTIFY pictureChanged)
    Q_PROPERTY(QImage largePicture READ largePicture NOTIFY largePictureChanged)
    Q_PROPERTY(bool isLoadingPicture READ isLoadingPicture NOTIFY pictureChanged)

public:
    /// Both must outlive this object.
    InspectorModel(ThumbnailService& thumbnails, FileBrowser& fileBrowser, QObject* parent = nullptr);
    ~InspectorModel() override;

    /// Shows an item. If it is shown already, its picture stays. `twins` are the rows about identical files:
    /// {label, value, isPath}.
    void open(const MediaItem& item, const QVariantList& twins = {});
    /// Makes `largePicture` for a space of `points` on a screen with this number of pixels for each point.
    Q_INVOKABLE void loadLargePicture(QSizeF points, double pixelsPerPoint);
    Q_INVOKABLE void dropLargePicture();
    Q_INVOKABLE void openFile() const;
    Q_INVOKABLE void showFile() const; ///< in its folder
    Q_INVOKABLE void copyPath() const;
    /// The texts stay until another item is shown, because the panel takes time to close.
    Q_INVOKABLE void close();

    [[nodiscard]] const std::optional<MediaItem>& item() const { return item_; } ///< the last one shown
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] QString symbol() const;
    [[nodiscard]] QVariantList sections() const;
    [[nodiscard]] QStringList warnings() const;
    [[nodiscard]] QStringList errors() const;
    [[nodiscard]] QString name() const;
    [[nodiscard]] const QImage& picture() const { return picture_; }
    /// The picture that fills the window. The small one until the large one is ready.
    [[nodiscard]] const QImage& largePicture() const {
        return largePicture_.isNull() ? picture_ : largePicture_;
    }
    [[nodiscard]] bool isLoadingPicture() const { return request_.has_value(); }

signals:
    void itemChanged();
    void pictureChanged();
    void largePictureChanged();

private:
    void loadPicture();
    void cancelPicture();

    ThumbnailService& thumbnails_;
    FileBrowser& fileBrowser_;
    QVariantList twins_;
    std::optional<MediaItem> item_;
    bool isOpen_ = false;
    QImage picture_;
    QImage largePicture_;
    std::optional<quint64> largeRequest_; ///< in progress
    std::optional<quint64> request_;      ///< in progress
};

} // namespace lumeo
