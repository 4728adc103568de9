#include "workbench/MainForm.h"

namespace vardel {

namespace {

constexpr Color StaleColor{50, 50, 50};

}  // namespace

void MainForm::MarkValuesStale() {
    for (Label* value :
         {&lblcost231, &lblFITU529, &lblOH529dBLoss, &lblFCost231, &lblDavidson, &lblPalvernDavFS})
        value->SetBackColor(StaleColor);
}

// Only an urban area knows large cities, so the others come with the small ones' formula.
void MainForm::cmbareatype_Click() {
    MarkValuesStale();
    const bool urban = cmbareatype.Text() == "Urban";
    cmbcitysize.SetEnabled(urban);
    if (!urban) cmbcitysize.SetText("Small/Medium");
}

}  // namespace vardel
