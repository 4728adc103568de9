#pragma once

#include <functional>
#include <optional>
#include <string>

#include "controls/Controls.h"
#include "forms/shared/StoredTexts.h"
#include "forms/tools/CoverageArea.h"
#include "forms/tools/GroundMap.h"
#include "terrain/ElevationModule.h"

namespace vardel {

// The area of a model under the contours of a map: which one is shown, what it gives under the
// pointer, and its files. A part of the form that has the map.
class AreaBoxes {
public:
    AreaBoxes(Form& form, GroundMap& map);

    // Called after another model was chosen.
    void OnChange(std::function<void()> change) { cmbArea.Click = std::move(change); }
    // Brings the picture to the map's table; without a goal there is none.
    void Show(const std::optional<Wanted>& wanted);
    bool IsShown() const { return !map_.Area().IsEmpty(); }

    // Writes the area that is shown: as a picture of its model, or as a GeoTIFF of all models.
    // Where goOn says no nothing is written. Throws ElevationError and std::system_error.
    void Save(const std::string& path, bool isPicture,
              const std::function<const ElevationModule&()>& module,
              const std::function<bool(double done)>& goOn) const;

    StoredTexts Texts() { return {{"Area", &cmbArea}}; }

    Label lblArea;
    ComboBox cmbArea;
    Button cmdSaveArea;
    Label lblPointed;

private:
    std::optional<ModelNumber> Chosen() const;
    void TellPointed();

    GroundMap& map_;
    std::optional<AreaGoal> goal_;
};

}  // namespace vardel
