#pragma once

#include <array>
#include <optional>
#include <string>

#include "controls/Controls.h"
#include "services/settings/Registry.h"

namespace vardel {

struct Platform;

// The introduction: what the program is for, and a table of which model suits which range.
class frmInfoScreen : public Form {
public:
    explicit frmInfoScreen(Platform& platform);

    Label lblTitle{*this, "lblTitle", "Vardel Model"};
    Label lblInfo{*this, "lblInfo"};
    Label Label20{*this, "Label20", "Frequency in MHz"};
    Label Label1{*this, "Label1", "30 < Freq < 150"};
    Label Label2{*this, "Label2", "150 < Freq < 1500"};
    Label Label3{*this, "Label3", "1500 < Freq < 2000"};
    Label Label16{*this, "Label16", "d <100km; hb < 200m"};
    Label Label18{*this, "Label18", "d <100km; hb >200m"};
    Label Label17{*this, "Label17", "d> 100km; hb <200m"};
    Label Label19{*this, "Label19", "d> 100km; hb >200m"};
    Label Label4{*this, "Label4", "Davidson"};
    Label Label5{*this, "Label5", "ITU 529"};
    Label Label6{*this, "Label6", "Cost 231"};
    Label Label7{*this, "Label7", "Davidson"};
    Label Label8{*this, "Label8", "Davidson"};
    Label Label9{*this, "Label9", "X"};
    Label Label10{*this, "Label10", "Davidson"};
    Label Label11{*this, "Label11", "Davidson"};
    Label Label12{*this, "Label12", "X"};
    Label Label13{*this, "Label13", "Davidson"};
    Label Label14{*this, "Label14", "Davidson"};
    Label Label15{*this, "Label15", "X"};
    // Each lies over a sign of a head and makes it a "less or equal".
    Label Label21{*this, "Label21", "<"};
    Label Label22{*this, "Label22", "<"};
    Label Label23{*this, "Label23", "<"};
    Label Label24{*this, "Label24", "<"};
    Label Label25{*this, "Label25", "<"};
    Label Label26{*this, "Label26", "<"};
    Label Label27{*this, "Label27", "<"};
    Label Label28{*this, "Label28", "<"};
    CheckBox chkShowNext{*this, "chkShowNext", "Show this Screen Next Time", true};
    Button cmdOK{*this, "cmdOK", "OK"};

    struct Row {
        Label& head;
        std::array<Label*, 3> cells;
    };
    std::array<Label*, 3> ColumnHeads() { return {&Label1, &Label2, &Label3}; }
    std::array<Row, 4> Rows();
    // The caption of a head with the marks that lie over it.
    std::string HeadAsRead(const Label& head) const;

private:
    void Form_Load() override;
    void SetAppearance();
    void chkShowNext_Click();

    std::optional<Registry> registry_;  // from the first click of the check box on
};

}  // namespace vardel
