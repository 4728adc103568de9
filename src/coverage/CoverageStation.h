#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "engine/reach/Wanted.h"
#include "map/Coordinates.h"
#include "models/Model.h"
#include "terrain/EffectiveHeights.h"

namespace vardel {

// The effective heights of a base antenna by azimuth, between these in proportion.
class AzimuthHeights {
public:
    // The same height in m on all azimuths.
    explicit AzimuthHeights(double metres) : metres_{metres, metres} {}
    // Heights in m on equally spaced azimuths from north over east, one at least; NaN where
    // one is not known.
    explicit AzimuthHeights(std::vector<double> metres) : metres_(std::move(metres)) {
        metres_.push_back(metres_.front());
        perDegree_ = static_cast<double>(metres_.size() - 1) / 360.0;
    }

    explicit AzimuthHeights(const EffectiveHeightTable& table) : AzimuthHeights(MetresOf(table)) {}

    bool Vary() const noexcept { return perDegree_ > 0.0; }
    // Of an azimuth from 0 to 360 degrees; NaN where one of both neighbours is not known.
    double At(double azimuth) const noexcept {
        const double at = azimuth * perDegree_;
        auto before = static_cast<std::size_t>(at);
        if (before + 2 > metres_.size()) before = metres_.size() - 2;
        const double part = at - static_cast<double>(before);
        return metres_[before] + part * (metres_[before + 1] - metres_[before]);
    }

private:
    static std::vector<double> MetresOf(const EffectiveHeightTable& table) {
        std::vector<double> metres;
        for (const RadialHeight& radial : table.radials) metres.push_back(radial.effectiveHeight);
        return metres;
    }

    std::vector<double> metres_;  // the first comes again at the end
    double perDegree_ = 0.0;      // spaces; 0: the same height everywhere
};

// All that a pixel of an area needs besides its distance and its azimuth.
struct CoverageStation {
    Place site;
    ModelInputs path;   // d and hb do not count
    double powerWatts;  // e.r.p.
    AzimuthHeights heights;
    ServiceQuantity quantity = ServiceQuantity::FieldStrength;
    Receiver receiver = {};  // for a received power
    std::vector<ModelNumber> models = {ComparedModels.begin(), ComparedModels.end()};  // of these
    double farthestKm = 300.0;  // from the site; beyond it is no value
};

}  // namespace vardel
