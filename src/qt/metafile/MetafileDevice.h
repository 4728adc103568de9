#pragma once

#include <QByteArray>
#include <QPaintDevice>
#include <QSize>
#include <memory>

namespace vardel {

class MetafileEngine;

// Records what a QPainter draws as a placeable Windows metafile: lines and shapes stay vectors and
// text stays text. Dashes become lines of their own and what the clip hides is cut off, because
// readers of the format differ in both. The format knows no transparency: colours are mixed with
// white paper.
class MetafileDevice : public QPaintDevice {
public:
    // The size is in points of the device, dpi of them to the inch; at most 32767 each way.
    explicit MetafileDevice(QSize pixels, int dpi = 96);
    ~MetafileDevice() override;

    // The complete file, of what has been painted until now.
    QByteArray Metafile() const;

    QPaintEngine* paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    QSize pixels_;
    int dpi_;
    std::unique_ptr<MetafileEngine> engine_;
};

}  // namespace vardel
