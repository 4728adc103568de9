#include "qt/services/PictureConvert.h"

#include <QBuffer>

namespace vardel {

namespace {

constexpr int TwipsPerPoint = 1440 / 96;

}  // namespace

Picture PictureOf(const QImage& image) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    const auto twips = [&](int points) {
        return static_cast<int>(points / image.devicePixelRatio() * TwipsPerPoint);
    };
    return {png.toStdString(), twips(image.width()), twips(image.height())};
}

QImage ImageOf(const Picture& picture) {
    return QImage::fromData(QByteArray::fromStdString(picture.png), "PNG");
}

QSize ScreenSizeOf(const Picture& picture) {
    return {picture.widthTwips / TwipsPerPoint, picture.heightTwips / TwipsPerPoint};
}

}  // namespace vardel
