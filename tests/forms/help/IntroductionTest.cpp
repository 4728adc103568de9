#include <gmock/gmock.h>

#include "forms/help/AboutForm.h"
#include "forms/help/frmInfoScreen.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

using testing::Contains;
using testing::ElementsAre;

class Introduction : public testing::Test, public RunningProgram {
protected:
    std::string& Stored() { return platform.store["Vardel/Loss_FieldStrength/InfoScreen"]; }
    bool ShownAtStart(bool fromHost = false) {
        platform.shown.clear();
        if (fromHost) platform.store["Ostrel_Quorne/Global Parameters/CalledFromQuorne"] = "True";
        Program started(platform.Services());
        started.Start();
        started.Introduce();
        return testing::Value(platform.shown, Contains("frmInfoScreen"));
    }
};

TEST_F(Introduction, TheCheckBoxDecidesAboutTheNextStart) {
    EXPECT_TRUE(ShownAtStart());
    platform.whileShown["frmInfoScreen"] = [this] {
        frmInfoScreen& form = *program.frmInfoScreen;
        EXPECT_TRUE(form.chkShowNext.Checked()) << "whatever is stored";
        form.chkShowNext.SetChecked(false);
        form.cmdOK.Press();
        EXPECT_FALSE(program.frmInfoScreen.Loaded());
    };
    Main().mnuHelpInfo.Pick();
    EXPECT_EQ(Stored(), "NoScreen");
    EXPECT_FALSE(ShownAtStart());
    program.frmInfoScreen->chkShowNext.SetChecked(false);
    program.frmInfoScreen->chkShowNext.SetChecked(true);
    EXPECT_EQ(Stored(), "ShowScreen");
    EXPECT_TRUE(ShownAtStart());
    EXPECT_FALSE(ShownAtStart(true)) << "the host's user has come for a calculation";
}

TEST_F(Introduction, TheTableReadsAsItsMarksSayAndTheVersionIsTold) {
    frmInfoScreen& form = *program.frmInfoScreen;
    std::vector<std::string> read;
    for (Label* head : form.ColumnHeads()) read.push_back(form.HeadAsRead(*head));
    for (const auto& row : form.Rows()) {
        std::string line = form.HeadAsRead(row.head) + ':';
        for (Label* cell : row.cells) line += ' ' + cell->Caption();
        read.push_back(line);
    }
    EXPECT_THAT(read, ElementsAre("30 ≤ Freq < 150", "150 ≤ Freq < 1500", "1500 ≤ Freq ≤ 2000",
                                  "d ≤100km; hb ≤ 200m: Davidson ITU 529 Cost 231",
                                  "d ≤100km; hb >200m: Davidson Davidson X",
                                  "d> 100km; hb ≤200m: Davidson Davidson X",
                                  "d> 100km; hb >200m: Davidson Davidson X"));
    EXPECT_EQ(form.Label1.Caption(), "30 < Freq < 150");
    EXPECT_EQ(program.AboutForm->lblVersion.Caption(), "Version 1.2.3");
}

}  // namespace
}  // namespace vardel
