#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "controls/Controls.h"
#include "engine/reach/ReachTable.h"
#include "forms/tools/SiteBoxes.h"
#include "forms/tools/WantedBoxes.h"

namespace vardel {

struct Doors;
struct Platform;
struct SharedData;

// How far the models let the main form's station reach for what a service asks, and what power or
// height it would need at the main form's distance. All is computed anew with every change, here
// and there. What is wrong is shown beside the boxes, in no message.
class ReachForm : public Form {
public:
    ReachForm(Platform& platform, SharedData& shared, Doors& doors);

    // Takes the main form's inputs as they stand.
    void BringUpToDate();
    // What the window began with at the last start, and at the next.
    void TakeSettings();
    void SaveSettings();

    Label lblPath{*this, "lblPath"};  // the main form's inputs
    WantedBoxes wanted{*this};
    Label lblProblem{*this, "lblProblem"};

    // The table: the heads of its rows and columns, and its cells by row.
    std::array<Label, 3> lblModel{
        {{*this, "lblModel(0)"}, {*this, "lblModel(1)"}, {*this, "lblModel(2)"}}};
    Label lblReachHead{*this, "lblReachHead"};
    std::array<TextBox, ReachPercentages> txtPercent{{{*this, "txtPercent(0)", "50"},
                                                      {*this, "txtPercent(1)", "90"},
                                                      {*this, "txtPercent(2)", "95"}}};
    Label lblPowerHead{*this, "lblPowerHead"};
    Label lblHeightHead{*this, "lblHeightHead"};
    std::vector<std::unique_ptr<Label>> lblReach;
    std::array<Label, 3> lblPower{
        {{*this, "lblPower(0)"}, {*this, "lblPower(1)"}, {*this, "lblPower(2)"}}};
    std::array<Label, 3> lblHeight{
        {{*this, "lblHeight(0)"}, {*this, "lblHeight(1)"}, {*this, "lblHeight(2)"}}};

    SiteBoxes site{*this};
    Button cmdMap{*this, "cmdMap", "Save &Rings ..."};
    Button cmdGraph{*this, "cmdGraph", "Show on &Graph"};
    Button cmdAdd{*this, "cmdAdd", "&Add to Log"};
    Button cmdCopy{*this, "cmdCopy", "&Copy Table"};
    Button cmdClose{*this, "cmdClose", "Close"};

private:
    void Form_Load() override;
    void Form_Unload() override;
    void WireEvents();
    StoredTexts Texts();
    void FillStation();
    void cmdGraph_Click();
    void cmdMap_Click();

    std::optional<std::array<double, ReachPercentages>> ReadPercentages(std::string& problem);
    void ShowTable();
    void TellTable();
    void ShowRow(std::size_t i, const ReachTable::Row& row);
    void ShowNoRow(std::size_t i);
    void CheckStation();

    SharedData& shared_;
    Doors& doors_;
    std::optional<ReachTable> table_;  // none while something is wrong
    std::optional<Place> station_;     // none while the boxes hold no place
};

}  // namespace vardel
