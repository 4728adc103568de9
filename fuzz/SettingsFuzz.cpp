// What stands in the settings, whatever it is: the host's parameters, what the windows were left
// with, and the recent paths. One program is kept and takes them anew for each input: making its
// windows takes longer than all that is looked at here.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Check.h"
#include "forms/Program.h"
#include "forms/main/MainForm.h"
#include "forms/tools/ReachForm.h"
#include "support/FakePlatform.h"
#include "text/NumberText.h"

namespace {

using namespace vardel;

const std::string Own = "Vardel/Loss_FieldStrength/";
const std::string ReachWindow = "Vardel/Reach/";
const std::string RecentPaths = "Vardel/Recent/Paths";
const std::string Host = "Ostrel_Quorne/Global Parameters/";

constexpr std::array<TextBox MainForm::*, 6> Boxes = {&MainForm::txtFreq,    &MainForm::txtDist,
                                                      &MainForm::txthb,      &MainForm::txthm,
                                                      &MainForm::txtPctTime, &MainForm::txtPctLoc};
using Texts = std::array<std::string, Boxes.size()>;

// No log file is made: the state folder cannot be.
class Desktop : public FakePlatform {
public:
    Platform Services() {
        Platform services = FakePlatform::Services();
        services.stateDirectory = "/dev/null/state";
        return services;
    }
    std::string Read(const std::string& application, const std::string& section,
                     const std::string& key) override {
        const auto found = store.find(application + '/' + section + '/' + key);
        return found != store.end() ? found->second : std::string();
    }
};

// Lines of "key=text": of the host where "+" stands in front, of the window Reach where "*" does,
// and the recent paths behind "@". The log's path is left out: what lies there is no matter of this
// target, and it may be any file of the machine.
void Fill(FakePlatform& platform, std::string_view input) {
    while (!input.empty()) {
        const std::string_view line = input.substr(0, input.find('\n'));
        input.remove_prefix(std::min(input.size(), line.size() + 1));
        const std::size_t equals = line.find('=');
        if (equals == line.npos) continue;
        const std::string key(line.substr(0, equals));
        const std::string_view text = line.substr(equals + 1);
        if (key.starts_with('+'))
            platform.store[Host + key.substr(1)] = text;
        else if (key.starts_with('*'))
            platform.store[ReachWindow + key.substr(1)] = text;
        else if (key.starts_with('@'))
            platform.store[RecentPaths] = text;
        else if (key != "TempLogName")
            platform.store[Own + key] = text;
    }
}

// The host's parameters as they are when nothing is stored.
struct HostDefaults {
    HostDefaults() {
        FakePlatform bare;
        Registry defaults(bare);
        defaults.SaveQuorneGlobals();
        for (const std::string& name : bare.writes)
            values.emplace_back(name, defaults.QuorneGlobalValue(name));
    }
    std::vector<std::pair<std::string, GlobalValue>> values;
};

// They keep their types and stay as they are once they were written back.
void CheckGlobals(FakePlatform& platform) {
    static const HostDefaults defaults;
    const auto before = platform.store;
    Registry first(platform);
    first.SaveQuorneGlobals();
    const auto written = platform.store;
    Registry second(platform);
    second.SaveQuorneGlobals();
    Check(platform.store == written);
    for (const auto& [name, byDefault] : defaults.values) {
        const GlobalValue value = second.QuorneGlobalValue(name);
        Check(GlobalText(value) == GlobalText(first.QuorneGlobalValue(name)));
        Check(value.index() == byDefault.index());
        if (const auto* number = std::get_if<double>(&value)) Check(std::isfinite(*number));
        // What could not be read is neither lost nor replaced.
        const auto stored = before.find(Host + name);
        if (stored != before.end() && !stored->second.empty() &&
            !ConvertLikeDefault(byDefault, stored->second))
            Check(written.at(Host + name) == stored->second);
    }
    platform.store = before;
}

// As a start does that finds the windows as they are made.
void Take(MainForm& form) {
    form.txtPctTime.SetText("50");
    form.txtPctLoc.SetText("50");
    form.mnuFileNew.Pick();
    form.TakeSettings();
}

// Whatever stood in a box is a number once it was left, and stays as it is from then on.
Texts LeaveBoxes(MainForm& form) {
    Texts texts;
    for (std::size_t i = 0; i < Boxes.size(); ++i) {
        TextBox& box = form.*Boxes[i];
        box.LostFocus.Raise();
        texts[i] = box.Text();
        Check(WholeTextNumber(texts[i]).has_value());
        box.LostFocus.Raise();
        Check(box.Text() == texts[i]);
    }
    return texts;
}

// What the boxes hold comes back at the next start of the same kind, and is a number when the host
// gave it or once the box was left.
void CheckMainForm(Program& program, Desktop& platform) {
    MainForm& form = *program.MainForm;
    const bool fromHost = Registry(platform).QuorneActive();
    Take(form);
    for (const auto box : Boxes)
        Check(!fromHost || WholeTextNumber((form.*box).Text()).has_value());
    const Texts texts = LeaveBoxes(form);
    Check(form.mnuUnitsMetric.Checked() != form.mnuUnitsEnglish.Checked());
    Check(form.cmbcitysize.Enabled() == (form.cmbareatype.Text() == "Urban"));
    program.EndSession();
    Check(platform.Read("Ostrel_Quorne", "Global Parameters", "CalledFromQuorne") != "True");
    const auto saved = platform.store;
    Take(form);
    for (std::size_t i = 0; i < Boxes.size(); ++i) Check((form.*Boxes[i]).Text() == texts[i]);
    program.EndSession();
    Check(platform.store == saved);
}

// A recent path that the menu has is one that the boxes take.
void CheckRecentPaths(MainForm& form) {
    for (MenuItem* entry : form.mnuToolsRecent.Entries()) {
        if (!entry->Visible()) continue;
        entry->Pick();
        const Texts taken = LeaveBoxes(form);
        Check(LeadingNumber(taken[0]) > 0.0);
    }
}

// Its texts come back as they were, once they were its own. Reaches, which take a hundred times as
// long as all else, are computed for some of the inputs; the others leave no path to compute them.
void CheckReach(Program& program, FakePlatform& platform, bool compute) {
    if (!compute) program.MainForm->txtFreq.SetText("");
    static_cast<void>(program.ReachForm->wanted.txtWanted.Text());
    program.ReachForm->Unload();
    const auto saved = platform.store;
    static_cast<void>(program.ReachForm->wanted.txtWanted.Text());
    program.ReachForm->Unload();
    Check(platform.store == saved);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Desktop platform;  // whose folder, made on the disk, stays empty
    static Program program(platform.Services());
    if (!program.MainForm.Loaded()) program.Start();
    platform.store.clear();
    Fill(platform, {reinterpret_cast<const char*>(data), size});
    const bool hasReach = platform.store.lower_bound(ReachWindow) != platform.store.end() &&
                          platform.store.lower_bound(ReachWindow)->first.starts_with(ReachWindow);
    CheckGlobals(platform);
    CheckMainForm(program, platform);
    CheckRecentPaths(*program.MainForm);
    if (hasReach) CheckReach(program, platform, size % 256 == 0);
    platform.messages.clear();
    platform.writes.clear();
    return 0;
}
