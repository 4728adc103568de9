#include "forms/tools/WantedBoxes.h"

#include "forms/shared/BoxMark.h"

namespace vardel {

WantedBoxes::WantedBoxes(Form& form)
    : lblWanted(form, "lblWanted", "Wanted"),
      cmbWanted(form, "cmbWanted", {{"Field strength"}, {"Received power"}, {"Path loss"}}),
      txtWanted(form, "txtWanted", "32"),
      lblWantedUnit(form, "lblWantedUnit"),
      lblGain(form, "lblGain", "Receiver antenna gain"),
      txtGain(form, "txtGain", "0"),
      lblGainUnit(form, "lblGainUnit", "dBi"),
      lblCable(form, "lblCable", "Cable loss"),
      txtCable(form, "txtCable", "0"),
      lblCableUnit(form, "lblCableUnit", "dB") {
    ShowHeads();
}

void WantedBoxes::OnChange(std::function<void()> change) {
    for (TextBox* box : {&txtWanted, &txtGain, &txtCable}) box->Change = change;
    cmbWanted.Click = [this, change = std::move(change)] {
        ShowHeads();
        change();
    };
}

void WantedBoxes::ShowHeads() {
    const auto quantity = static_cast<ServiceQuantity>(cmbWanted.ListIndex());
    lblWantedUnit.SetCaption(UnitOf(quantity));
    const bool received = quantity == ServiceQuantity::ReceivedPower;
    for (Control* control :
         {static_cast<Control*>(&lblGain), static_cast<Control*>(&txtGain),
          static_cast<Control*>(&lblGainUnit), static_cast<Control*>(&lblCable),
          static_cast<Control*>(&txtCable), static_cast<Control*>(&lblCableUnit)})
        control->SetEnabled(received);
}

std::optional<Wanted> WantedBoxes::Read(std::string& problem) {
    Wanted wanted{static_cast<ServiceQuantity>(cmbWanted.ListIndex())};
    const auto value = ReadOrTell(txtWanted, LowestWanted, HighestWanted, WantedRule, problem);
    if (wanted.quantity == ServiceQuantity::ReceivedPower) {
        const auto gain = ReadOrTell(txtGain, -100, 100,
                                     "The gain must be a number from -100 to 100 dBi.", problem);
        const auto cable = ReadOrTell(txtCable, 0, 100,
                                      "The cable loss must be a number from 0 to 100 dB.", problem);
        if (!gain || !cable) return std::nullopt;
        wanted.antennaGainDbi = *gain;
        wanted.cableLossDb = *cable;
    }
    if (!value) return std::nullopt;
    wanted.value = *value;
    return wanted;
}

StoredTexts WantedBoxes::Texts() {
    return {{"Value", &txtWanted},
            {"Gain", &txtGain},
            {"CableLoss", &txtCable},
            {"Wanted", &cmbWanted}};
}

std::optional<double> ReadOrTell(TextBox& box, double low, double high, const char* rule,
                                 std::string& problem) {
    const auto number = ReadMarked(box, low, high, rule);
    if (!number && problem.empty()) problem = rule;
    return number;
}

}  // namespace vardel
