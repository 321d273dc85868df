#include "thumbnailer/PictureShape.h"

#include <QTransform>

#include <array>
#include <cstddef>

namespace lumeo {

QSize fitted(QSize picture, QSize space) {
    if (picture.width() <= space.width() && picture.height() <= space.height()) {
        return picture;
    }
    return picture.scaled(space, Qt::KeepAspectRatio).expandedTo({1, 1});
}

QImage upright(const QImage& picture, int orientation) {
    static const std::array turns{
        QTransform(),                   // 1
        QTransform(-1, 0, 0, 1, 0, 0),  // 2: mirrored left to right
        QTransform(-1, 0, 0, -1, 0, 0), // 3: upside down
        QTransform(1, 0, 0, -1, 0, 0),  // 4: mirrored top to bottom
        QTransform(0, 1, 1, 0, 0, 0),   // 5: mirrored along the diagonal
        QTransform(0, 1, -1, 0, 0, 0),  // 6: needs a turn to the right
        QTransform(0, -1, -1, 0, 0, 0), // 7: mirrored along the other diagonal
        QTransform(0, -1, 1, 0, 0, 0),  // 8: needs a turn to the left
    };
    if (orientation <= 1 || orientation > static_cast<int>(turns.size())) {
        return picture;
    }
    return picture.transformed(turns[static_cast<std::size_t>(orientation - 1)]);
}

} // namespace lumeo
