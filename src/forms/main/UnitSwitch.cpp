#include "forms/main/UnitSwitch.h"

#include "engine/Units.h"

#include <optional>
#include <vector>

#include "controls/Hourglass.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/main/MainForm.h"
#include "forms/shared/BoxRule.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

// What a form shows of the units.
struct UnitControls {
    MenuItem& metric;
    MenuItem& english;
    Label& hbUnit;
    Label& hmUnit;
    TextBox& hb;
    TextBox& hm;
};

template <class FormWithHeights>
UnitControls UnitControlsOf(FormWithHeights& form) {
    return {form.mnuUnitsMetric, form.mnuUnitsEnglish, form.Label10,
            form.Label11,        form.txthb,           form.txthm};
}

// A graph form that is not there yet is made, hidden, with the main form's inputs and units. Its
// first plot yields, when the program may be closed. False where it was.
bool MakeGraphForms(Doors& doors) {
    const auto isMissing = [&doors](const auto& form) {
        return doors.MainForm.Loaded() && !form.Loaded();
    };
    while (isMissing(doors.GraphForm) || isMissing(doors.FrmOkumFieldStrength)) {
        if (isMissing(doors.GraphForm)) *doors.GraphForm;
        if (isMissing(doors.FrmOkumFieldStrength)) *doors.FrmOkumFieldStrength;
    }
    return doors.MainForm.Loaded();
}

void ShowUnits(const std::vector<UnitControls>& forms, bool english) {
    for (const UnitControls& form : forms) {
        form.metric.SetChecked(!english);
        form.english.SetChecked(english);
    }
    const char* const unit = HeightUnit(english ? Units::English : Units::Metric);
    for (const UnitControls& form : forms) {
        form.hbUnit.SetCaption(unit);
        form.hmUnit.SetCaption(unit);
    }
}

std::vector<UnitControls> GraphForms(Doors& doors) {
    return {UnitControlsOf(*doors.GraphForm), UnitControlsOf(*doors.FrmOkumFieldStrength)};
}

// On the main form first: a graph form that is missing takes them from there. False where the
// program was closed meanwhile.
bool ShowUnitsOnAll(Doors& doors, bool english) {
    MainForm& main = *doors.MainForm;
    ShowUnits({UnitControlsOf(main)}, english);
    main.Label12.SetCaption(english ? "miles" : "Km");
    if (!MakeGraphForms(doors)) return false;
    ShowUnits(GraphForms(doors), english);
    return true;
}

struct Lengths {
    double hb;
    double hm;
    double distance;
};

std::optional<Lengths> ReadLengths(MainForm& main) {
    const auto hb = ReadNumberBox(main.txthb, main.Label3, main);
    if (!hb) return std::nullopt;
    const auto hm = ReadNumberBox(main.txthm, main.Label4, main);
    if (!hm) return std::nullopt;
    const auto distance = ReadNumberBox(main.txtDist, main.Label2, main);
    if (!distance) return std::nullopt;
    return Lengths{*hb, *hm, *distance};
}

// The main form's own boxes come last: the others take their numbers from there.
void ConvertBoxes(Doors& doors, const Lengths& from, bool toEnglish) {
    MainForm& main = *doors.MainForm;
    const auto write = [toEnglish](TextBox& box, double x, double factor) {
        box.SetText(FormatNumber(Finite(toEnglish ? x / factor : x * factor), InputPattern));
    };
    std::vector<UnitControls> forms = GraphForms(doors);
    forms.push_back(UnitControlsOf(main));
    for (const UnitControls& form : forms) {
        write(form.hb, from.hb, MetresPerFoot);
        write(form.hm, from.hm, MetresPerFoot);
    }
    write(main.txtDist, from.distance, KmPerMile);
    doors.GraphForm->ShowHandBack();
    doors.FrmOkumFieldStrength->ShowHandBack();
}

// The yield may close the program, or handle another pick of the entry.
void Switch(Doors& doors, MainForm& main, const MenuItem& mark, bool toEnglish) {
    const Hourglass hourglass(main);
    doors.platform.windows.Yield();
    if (!doors.MainForm.Loaded() || mark.Checked()) return;
    const auto lengths = ReadLengths(main);
    if (lengths && ShowUnitsOnAll(doors, toEnglish)) ConvertBoxes(doors, *lengths, toEnglish);
}

void SwitchUnlessOn(Doors& doors, bool toEnglish) {
    MainForm& main = *doors.MainForm;
    const MenuItem& mark = toEnglish ? main.mnuUnitsEnglish : main.mnuUnitsMetric;
    // As a routine of the main form's, which lives until it ends.
    if (!mark.Checked()) main.Run([&] { Switch(doors, main, mark, toEnglish); });
}

}  // namespace

void SetMetricUnits(Doors& doors) { SwitchUnlessOn(doors, false); }
void SetEnglishUnits(Doors& doors) { SwitchUnlessOn(doors, true); }

// The main form's boxes hold feet and miles already, and the graph forms take them as such.
void ShowEnglishUnits(Doors& doors) { ShowUnitsOnAll(doors, true); }

}  // namespace vardel
