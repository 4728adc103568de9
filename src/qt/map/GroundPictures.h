#pragma once

#include <QColor>
#include <QImage>

#include "forms/tools/CoverageArea.h"
#include "terrain/Relief.h"

namespace vardel {

constexpr QColor UnseenGround(228, 228, 228);

// The ground in the tints of maps, from its lowest place to its highest, and lit. Pale, so that
// lines stand out. Null where there is no ground.
QImage PictureOf(const Relief& relief);

// A pixel for each of the area's. Null where there is none.
QImage PictureOf(const AreaPicture& area);

}  // namespace vardel
