#include "workbench/Units.h"

#include <array>
#include <vector>

#include "workbench/BoxRule.h"
#include "workbench/MainForm.h"
#include "workbench/NumberText.h"
#include "workbench/Program.h"

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

// The main form first.
std::vector<UnitControls> FormsWithUnits(Program& program) {
    return {UnitControlsOf(*program.MainForm)};
}

double Converted(double x, double metricPerEnglish, bool toEnglish) {
    return toEnglish ? x / metricPerEnglish : x * metricPerEnglish;
}

void Switch(Program& program, bool toEnglish) {
    MainForm& main = *program.MainForm;
    if ((toEnglish ? main.mnuUnitsEnglish : main.mnuUnitsMetric).Checked()) return;
    main.SetMousePointer(Form::Pointer::Hourglass);
    program.platform.windows.Yield();
    if (!program.MainForm.Loaded()) return;

    const auto hb = ReadNumberBox(main.txthb, main.Label3, main);
    const auto hm = hb ? ReadNumberBox(main.txthm, main.Label4, main) : hb;
    const auto dist = hm ? ReadNumberBox(main.txtDist, main.Label2, main) : hm;
    if (hb && hm && dist) {
        const auto forms = FormsWithUnits(program);
        for (const UnitControls& form : forms) {
            form.metric.SetChecked(!toEnglish);
            form.english.SetChecked(toEnglish);
        }
        for (const UnitControls& form : forms) {
            form.hbUnit.SetCaption(toEnglish ? "ft" : "m");
            form.hmUnit.SetCaption(toEnglish ? "ft" : "m");
        }
        main.Label12.SetCaption(toEnglish ? "miles" : "Km");

        // The main form's own boxes come last: the others take their numbers from there.
        const auto write = [toEnglish](TextBox& box, double x, double factor) {
            box.SetText(FormatNumber(Converted(x, factor, toEnglish), InputPattern));
        };
        const auto writeHeights = [&](const UnitControls& form) {
            write(form.hb, *hb, MetresPerFoot);
            write(form.hm, *hm, MetresPerFoot);
        };
        for (std::size_t i = 1; i < forms.size(); ++i) writeHeights(forms[i]);
        writeHeights(forms[0]);
        write(main.txtDist, *dist, KmPerMile);
    }
    main.SetMousePointer(Form::Pointer::Normal);
}

}  // namespace

void SetMetricUnits(Program& program) { Switch(program, false); }
void SetEnglishUnits(Program& program) { Switch(program, true); }

}  // namespace vardel
