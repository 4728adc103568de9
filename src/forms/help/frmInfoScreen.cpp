#include "forms/help/frmInfoScreen.h"

#include "forms/shared/Palette.h"
#include "services/Platform.h"

namespace vardel {

namespace {

constexpr const char* Information =
    "Vardel (Vardel): is a package of empirical models for terrestrial land mobile services. The "
    "models, Okumura-Hata/ITU-R 529, COST 231 and Okumura-Hata-Davidson, are based on extensive "
    "propagation measurements done by Okumura et al in Japan. The input parameters are frequency, "
    "distance, base and mobile antenna heights, transmitted power, percent time and location, and "
    "environment. Path loss in dB and received field strength in dB mV/m are calculated for one "
    "specific distance or over a range of distances. Graphs can be plotted for path loss or field "
    "strength for all models and measured data, if available, can be displayed on the same graph. "
    "Field strengths for individual models can be plotted vs. distance for different base antenna "
    "heights. The graphs can be updated for a new set of input parameters from an interactive "
    "dialog box.";

struct Mark {
    Label frmInfoScreen::*mark;
    Label frmInfoScreen::*head;
    int sign;  // the first or the second of the head that is a "<"
};

constexpr std::array<Mark, 8> Marks = {{
    {&frmInfoScreen::Label21, &frmInfoScreen::Label1, 1},
    {&frmInfoScreen::Label24, &frmInfoScreen::Label2, 1},
    {&frmInfoScreen::Label26, &frmInfoScreen::Label3, 1},
    {&frmInfoScreen::Label25, &frmInfoScreen::Label3, 2},
    {&frmInfoScreen::Label28, &frmInfoScreen::Label16, 1},
    {&frmInfoScreen::Label22, &frmInfoScreen::Label16, 2},
    {&frmInfoScreen::Label23, &frmInfoScreen::Label18, 1},
    {&frmInfoScreen::Label27, &frmInfoScreen::Label17, 1},
}};

}  // namespace

frmInfoScreen::frmInfoScreen(Platform& platform) : Form(platform, "frmInfoScreen", "Introduction") {
    SetAppearance();
    chkShowNext.Click = [this] { chkShowNext_Click(); };
    cmdOK.Click = [this] { Unload(); };
}

void frmInfoScreen::SetAppearance() {
    lblTitle.SetForeColor(DeepTeal);
    SetOwnColors();
    Label20.SetBackColor(DeepTeal);
    Label20.SetForeColor(White);
    for (Label* head : ColumnHeads()) {
        head->SetBackColor(Teal);
        head->SetForeColor(White);
    }
    for (const Row& row : Rows()) {
        row.head.SetBackColor(PaleTeal);
        for (Label* cell : row.cells) {
            if (cell->Caption() != "X") continue;
            cell->SetForeColor(MutedGray);
            cell->SetToolTipText("No model covers this");
        }
    }
}

std::array<frmInfoScreen::Row, 4> frmInfoScreen::Rows() {
    return {{{Label16, {&Label4, &Label5, &Label6}},
             {Label18, {&Label7, &Label8, &Label9}},
             {Label17, {&Label10, &Label11, &Label12}},
             {Label19, {&Label13, &Label14, &Label15}}}};
}

std::string frmInfoScreen::HeadAsRead(const Label& head) const {
    std::string text;
    int sign = 0;
    for (const char c : head.Caption()) {
        bool marked = false;
        if (c == '<') {
            ++sign;
            for (const Mark& mark : Marks)
                marked |= &(this->*mark.head) == &head && mark.sign == sign &&
                          (this->*mark.mark).Visible();
        }
        if (marked)
            text += "\u2264";
        else
            text += c;
    }
    return text;
}

void frmInfoScreen::Form_Load() { lblInfo.SetCaption(Information); }

void frmInfoScreen::chkShowNext_Click() {
    if (!registry_) registry_.emplace(GetPlatform().settings);
    registry_->SetAppname(GetPlatform().applicationTitle);
    registry_->SetSection(SettingsSection);
    registry_->SetKey(InfoScreenKey);
    registry_->SetSetting(chkShowNext.Checked() ? "ShowScreen" : NoInfoScreen);
    registry_->RegSave();
}

}  // namespace vardel
