#include "forms/tools/ExplainForm.h"

#include "engine/Explanation.h"
#include "engine/PathText.h"
#include "forms/Doors.h"
#include "forms/help/ModelTopics.h"
#include "forms/main/MainForm.h"
#include "forms/shared/BoxRule.h"
#include "services/Platform.h"

namespace vardel {

namespace {

std::vector<ComboBox::Item> ModelEntries() {
    std::vector<ComboBox::Item> entries;
    entries.reserve(Models.size());
    for (const Model& model : Models)
        entries.push_back({model.name, static_cast<int>(model.number)});
    return entries;
}

}  // namespace

ExplainForm::ExplainForm(Platform& platform, Doors& doors)
    : Form(platform, "ExplainForm", "Explain This Number"),
      cmbModel(*this, "cmbModel", ModelEntries()),
      doors_(doors) {
    SetHelpContextID(HelpTopic::Explanation);
    cmbModel.Click = [this] { BringUpToDate(); };
    cmdCopy.Click = [this] {
        const std::string text =
            cmbModel.Text() + ": " + lblPath.Caption() + "\n\n" + lblTerms.Caption();
        GetPlatform().clipboard.SetText(text, {});
    };
    cmdClose.Click = [this] { Unload(); };
}

void ExplainForm::Form_Load() { BringUpToDate(); }

void ExplainForm::BringUpToDate() {
    const Model& model = ModelOf(static_cast<ModelNumber>(cmbModel.SelectedItemData()));
    cmbModel.SetHelpContextID(TopicOf(model.number));
    if (!doors_.MainForm.Loaded()) return;
    const auto path = doors_.MainForm->ReadPathQuietly();
    cmdCopy.SetEnabled(path.has_value());
    if (!path) {
        lblPath.SetCaption("Every box of the main window must hold a number above zero.");
        lblTerms.SetCaption("");
        return;
    }
    lblPath.SetCaption(DistanceText(*path) + ", " + PathText(*path) + ", " +
                       PercentText(path->pctLoc) + " of locations");
    lblTerms.SetCaption(ExplanationText(model, MetricInputs(*path), path->powerWatts));
}

}  // namespace vardel
