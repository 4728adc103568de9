#pragma once

#include <optional>

#include "controls/Controls.h"
#include "engine/Units.h"
#include "forms/tools/CoverageArea.h"
#include "terrain/Contours.h"
#include "terrain/Relief.h"

namespace vardel {

// A station's surroundings, north at the top: the relief of the ground, and over it the contours of
// the models, the effective heights by azimuth and the area of a model. One azimuth may be marked,
// and a place pointed at.
class GroundMap : public Control {
public:
    GroundMap(Form& form, std::string name)
        : Control(form, std::move(name)), Pick(form), Point(form) {}

    // Both empty or none at first.
    const Relief& Ground() const { return ground_; }
    const std::optional<ContourTable>& Table() const { return table_; }
    std::optional<std::size_t> Marked() const { return marked_; }
    const AreaPicture& Area() const { return area_; }
    const std::optional<PlaceAround>& Pointed() const { return pointed_; }
    // Grow with each change of the ground, of the area, and of the table.
    int GroundChanges() const { return groundChanges_; }
    int AreaChanges() const { return areaChanges_; }
    int TableChanges() const { return tableChanges_; }
    // The farthest that is to be seen, in km.
    double RadiusKm() const { return radiusKm_; }
    Units ShownUnits() const { return units_; }

    void SetGround(Relief ground) {
        ground_ = std::move(ground);
        Assign(groundChanges_, groundChanges_ + 1);
    }
    void SetTable(std::optional<ContourTable> table, double radiusKm, Units units) {
        units_ = units;
        table_ = std::move(table);
        radiusKm_ = radiusKm;
        Assign(tableChanges_, tableChanges_ + 1);
    }
    void SetArea(AreaPicture area) {
        area_ = std::move(area);
        Assign(areaChanges_, areaChanges_ + 1);
    }
    void SetPointed(std::optional<PlaceAround> place) { pointed_ = place; }
    void SetMarked(std::optional<std::size_t> azimuth) { Assign(marked_, azimuth); }

    Event Pick;   // the user has marked another azimuth
    Event Point;  // the pointer has come to another place, or left

private:
    Relief ground_;
    std::optional<ContourTable> table_;
    std::optional<std::size_t> marked_;
    AreaPicture area_;
    std::optional<PlaceAround> pointed_;
    double radiusKm_ = 1.0;
    Units units_ = Units::Metric;
    int groundChanges_ = 0;
    int areaChanges_ = 0;
    int tableChanges_ = 0;
};

}  // namespace vardel
