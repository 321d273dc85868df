#pragma once

#include <QImage>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

/// Shows an image of a model, as large as fits, without distortion.
class Picture : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage image READ image WRITE setImage NOTIFY imageChanged)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY imageChanged)

public:
    explicit Picture(QQuickItem* parent = nullptr);

    [[nodiscard]] const QImage& image() const { return image_; }
    void setImage(const QImage& image);
    [[nodiscard]] bool isEmpty() const { return image_.isNull(); }

    void paint(QPainter* painter) override;

signals:
    void imageChanged();

private:
    QImage image_;
};

} // namespace lumeo
