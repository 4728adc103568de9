#pragma once

#include <optional>
#include <string>

#include "controls/Controls.h"
#include "engine/reach/ReachTable.h"
#include "forms/shared/StoredTexts.h"

namespace vardel {

// What a service asks for, as the user enters it: a part of each form that asks backwards.
class WantedBoxes {
public:
    explicit WantedBoxes(Form& form);

    // Called after each change of what is entered.
    void OnChange(std::function<void()> change);
    // Nothing while a box is wrong, which is marked. The first rule that was broken becomes the
    // problem, unless there is one.
    std::optional<Wanted> Read(std::string& problem);
    StoredTexts Texts();

    Label lblWanted;
    ComboBox cmbWanted;
    TextBox txtWanted;
    Label lblWantedUnit;
    Label lblGain;
    TextBox txtGain;
    Label lblGainUnit;
    Label lblCable;
    TextBox txtCable;
    Label lblCableUnit;

private:
    void ShowHeads();
};

// As ReadMarked; the first rule that was broken becomes the problem, unless there is one.
std::optional<double> ReadOrTell(TextBox& box, double low, double high, const char* rule,
                                 std::string& problem);

}  // namespace vardel
