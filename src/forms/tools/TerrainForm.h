#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/RowList.h"
#include "forms/tools/AreaBoxes.h"
#include "forms/tools/GroundMap.h"
#include "forms/tools/SiteBoxes.h"
#include "forms/tools/WantedBoxes.h"
#include "terrain/Elevations.h"

namespace vardel {

struct Doors;
struct Platform;

// The effective heights of the station's antenna by azimuth, from elevation data, and how far it
// reaches with them. The ground is read when the user asks; what depends on the main form's inputs
// and on what is wanted follows at once. What is wrong is shown beside the boxes, in no message.
class TerrainForm : public Form {
public:
    TerrainForm(Platform& platform, Doors& doors);

    // Takes the main form's inputs as they stand.
    void BringUpToDate();
    // What the window began with at the last start, and at the next.
    void TakeSettings();
    void SaveSettings();

    Label lblPath{*this, "lblPath"};  // the main form's inputs
    SiteBoxes site{*this};
    Label lblAntenna{*this, "lblAntenna", "Antenna above ground"};
    TextBox txtAntenna{*this, "txtAntenna", "30"};
    Label lblAntennaUnit{*this, "lblAntennaUnit"};
    Label lblGround{*this, "lblGround", "Ground at the site"};
    TextBox txtGround{*this, "txtGround"};
    Label lblGroundUnit{*this, "lblGroundUnit"};
    Label lblFiles{*this, "lblFiles", "Elevation data"};
    TextBox txtFiles{*this, "txtFiles"};
    Button cmdFile{*this, "cmdFile", "&File ..."};
    Button cmdFolder{*this, "cmdFolder", "F&older ..."};
    Label lblDefinition{*this, "lblDefinition", "Average terrain"};
    ComboBox cmbDefinition;
    Label lblFrom{*this, "lblFrom", "from"};
    TextBox txtFrom{*this, "txtFrom", "3"};
    Label lblTo{*this, "lblTo", "to"};
    TextBox txtTo{*this, "txtTo", "15"};
    Label lblBoundsUnit{*this, "lblBoundsUnit", "km"};
    Label lblAzimuths{*this, "lblAzimuths", "Azimuths"};
    TextBox txtAzimuths{*this, "txtAzimuths", "72"};
    WantedBoxes wanted{*this};
    Button cmdRead{*this, "cmdRead", "&Read Ground"};
    Button cmdCancel{*this, "cmdCancel", "Cancel"};
    ProgressBar pgbRead{*this, "pgbRead", 0, 1};
    Label lblProblem{*this, "lblProblem"};
    Label lblNotes{*this, "lblNotes"};
    GroundMap map{*this, "map"};
    AreaBoxes area{*this, map};
    RowList lstAzimuths;
    Button cmdTake{*this, "cmdTake", "&Use This Height"};
    Button cmdAdd{*this, "cmdAdd", "&Add to Log"};
    Button cmdCopy{*this, "cmdCopy", "&Copy Table"};
    Button cmdSave{*this, "cmdSave", "&Save Contours ..."};
    Button cmdClose{*this, "cmdClose", "Close"};

private:
    struct Inputs {
        Mast mast;
        HeightDefinition definition;
        std::size_t azimuths;
        std::vector<std::string> files;
    };

    void Form_Load() override;
    void Form_Unload() override;
    void WireEvents();
    StoredTexts Texts();
    Units UnitsNow() const;
    void cmdTake_Click();
    void cmdSave_Click();
    void cmdSaveArea_Click();

    // TerrainFormInputs.cpp
    void ConvertBoxes(Units units);
    std::optional<HeightDefinition> ReadDefinition(std::string& problem);
    std::optional<Inputs> ReadInputs(std::string& problem);
    void TellGround();

    // TerrainFormReading.cpp
    void cmdRead_Click();
    // Runs what takes its time, with progress and Cancel; an exception becomes the problem, and so
    // does that it was cancelled.
    void RunAtLength(const std::function<void()>& work, const char* cancelled);
    void ReadGround(const Inputs& inputs);
    // Lets the user in, who may stop it or close the window; whether it is to go on.
    bool GoesOn(double done);
    void ShowContours();
    RowList::Row RowAt(std::size_t azimuth) const;
    void ShowAzimuth(std::optional<std::size_t> azimuth);
    void EnableButtons();

    Doors& doors_;
    std::unique_ptr<Elevations> elevations_;  // of openFiles_
    std::vector<std::string> openFiles_;
    std::optional<EffectiveHeightTable> heights_;  // none until the ground was read
    std::string problem_;                          // of the last reading or saving
    Units units_ = Units::Metric;                  // of the heights in the boxes
    bool busy_ = false;
    bool cancelled_ = false;
};

}  // namespace vardel
