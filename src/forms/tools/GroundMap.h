#pragma once

#include <optional>
#include <vector>

#include "controls/Controls.h"
#include "engine/Units.h"
#include "terrain/Contours.h"
#include "terrain/Relief.h"

namespace vardel {

// A station's surroundings, north at the top: the relief of the ground, and over it the contours of
// the models and the effective heights by azimuth. One azimuth may be marked.
class GroundMap : public Control {
public:
    GroundMap(Form& form, std::string name) : Control(form, std::move(name)), Pick(form) {}

    // Both empty or none at first.
    const Relief& Ground() const { return ground_; }
    const std::optional<ContourTable>& Table() const { return table_; }
    std::optional<std::size_t> Marked() const { return marked_; }
    // Grow with each change of the ground, and of the table.
    int GroundChanges() const { return groundChanges_; }
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
    void SetMarked(std::optional<std::size_t> azimuth) { Assign(marked_, azimuth); }

    Event Pick;  // the user has marked another azimuth

private:
    Relief ground_;
    std::optional<ContourTable> table_;
    std::optional<std::size_t> marked_;
    double radiusKm_ = 1.0;
    Units units_ = Units::Metric;
    int groundChanges_ = 0;
    int tableChanges_ = 0;
};

}  // namespace vardel
