#include "ui/models/Picture.h"

#include <QPainter>

namespace lumeo {

Picture::Picture(QQuickItem* parent) : QQuickPaintedItem(parent) {}

void Picture::setImage(const QImage& image) {
    image_ = image;
    emit imageChanged();
    update();
}

void Picture::paint(QPainter* painter) {
    if (image_.isNull()) {
        return;
    }
    const QRectF room = boundingRect();
    QRectF place(QPointF(), QSizeF(image_.size()).scaled(room.size(), Qt::KeepAspectRatio));
    place.moveCenter(room.center());
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(place, image_);
}

} // namespace lumeo
