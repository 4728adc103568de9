#pragma once

#include <QImage>

#include "services/Picture.h"

namespace vardel {

// At 96 points to the inch, a plain screen's.
Picture PictureOf(const QImage& image);
// A null image where the picture cannot be read.
QImage ImageOf(const Picture& picture);
// In points of the screen; empty where the picture does not say.
QSize ScreenSizeOf(const Picture& picture);

}  // namespace vardel
