#include "engine/LogLine.h"

#include <array>
#include <string>

#include "forms/reports/RLogClass.h"
#include "models/ModCalculations.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

struct ResultColumn {
    ModelNumber model;
    ModelFunction function;
};

constexpr std::array<ResultColumn, 6> ResultColumns = {{
    {ModelDavidson, DavidsonLoss},
    {ModelCost231, Cost231Loss},
    {ModelItu529, Itu529Loss},
    {ModelItu529, Itu529FieldStrength},
    {ModelDavidson, DavidsonFieldStrength},
    {ModelCost231, Cost231FieldStrength},
}};

std::string Field(double x, std::string_view pattern) {
    return FixedWidthNumber(FormatNumber(x, pattern));
}

std::string CityColumn(const ModelInputs& in) {
    constexpr std::string_view Pattern = "@@@@@@@@@@@@!";
    return FormatText(Trimmed(in.area) == "Urban" ? std::string_view(in.city) : std::string_view(),
                      Pattern);
}

}  // namespace

const char* const LogColumnHeader =
    "  Dist     Frq    BaseH   MobilH    Area      City     OHDavLs  C231Ls  H529Ls   H529FS"
    "  HDAVFS C231FS   T%  L% Units    Watts    Date      Time";

void AddLogLine(RLogClass& log, const LogLine& line, Clock& clock) {
    const ModelInputs& in = line.inputs;
    log.BeginLine();  // elsewhere it would be torn: only its first piece would go to the caret
    log.Add(Field(line.distance, "00000.00") + ' ' + Field(line.frequency, "00000.0"));
    log.Add(' ' + Field(line.hb, "0000.00") + "  " + Field(line.hm, "000.00"));
    log.Add(' ' + FormatText(in.area, "@@@@@@@@!") + "  ");
    log.Add(CityColumn(in));
    for (const ResultColumn& column : ResultColumns) {
        log.SetUnderline(!ModelInRange(column.model, in.f, in.hb, in.hm, in.d, in.area));
        log.Add(Field(column.function(in), "0000.00") + ' ');
    }
    log.SetUnderline(false);
    log.Add(' ' + FormatNumber(in.pctTime / 100.0, "00%"));
    log.Add(' ' + FormatNumber(in.pctLoc / 100.0, "00%"));
    log.Add(line.english ? " Enlish" : " Metric");
    log.Add(' ' + Field(line.powerWatts, "000000.0"));
    log.Add(' ' + FormatDateTime(clock.Now()));
    log.Add("\r\n");
}

}  // namespace vardel
