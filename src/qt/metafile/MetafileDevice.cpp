#include "qt/metafile/MetafileDevice.h"

#include <algorithm>

#include "qt/metafile/MetafileEngine.h"

namespace vardel {

namespace {

constexpr int LongestSide = 32767;
constexpr double MillimetresPerInch = 25.4;

}  // namespace

MetafileDevice::MetafileDevice(QSize pixels, int dpi)
    : pixels_(pixels.expandedTo({1, 1}).boundedTo({LongestSide, LongestSide})),
      dpi_(std::max(dpi, 1)),
      engine_(std::make_unique<MetafileEngine>(pixels_, dpi_)) {}

MetafileDevice::~MetafileDevice() = default;

QByteArray MetafileDevice::Metafile() const {
    return QByteArray::fromStdString(engine_->Writer().File());
}

QPaintEngine* MetafileDevice::paintEngine() const { return engine_.get(); }

int MetafileDevice::metric(PaintDeviceMetric metric) const {
    const auto millimetres = [&](int pixels) { return qRound(pixels * MillimetresPerInch / dpi_); };
    switch (metric) {
        case PdmWidth:
            return pixels_.width();
        case PdmHeight:
            return pixels_.height();
        case PdmWidthMM:
            return millimetres(pixels_.width());
        case PdmHeightMM:
            return millimetres(pixels_.height());
        case PdmNumColors:
            return 1 << 24;
        case PdmDepth:
            return 24;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return dpi_;
        case PdmDevicePixelRatio:
            return 1;
        default:
            return QPaintDevice::metric(metric);
    }
}

}  // namespace vardel
