#include "support/Exports.h"

#include "forms/archive/ArchiveForm.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/tools/MeasuredForm.h"
#include "forms/tools/ReachForm.h"

namespace vardel {

namespace {

void SaveRings(Program& program) {
    program.ReachForm->site.txtLatitude.SetText("52.5");
    program.ReachForm->site.txtLongitude.SetText("13.4");
    program.ReachForm->cmdMap.Press();
}

}  // namespace

const std::vector<Export>& Exports() {
    static const std::vector<Export> exports = {
        {"log.rtf", 3, [](Program& p) { p.FrmReport->cmdFile.Press(); }},
        {"log.txt", 2, [](Program& p) { p.FrmReport->cmdFile.Press(); }},
        {"log.csv", 1, [](Program& p) { p.FrmReport->mnuEditSaveCsv.Pick(); }},
        {"graph.png", 1, [](Program& p) { p.GraphForm->Export().mnuExportPng.Pick(); }},
        {"graph.svg", 1, [](Program& p) { p.GraphForm->Export().mnuExportSvg.Pick(); }},
        {"graph.pdf", 1, [](Program& p) { p.GraphForm->Export().mnuExportPdf.Pick(); }},
        {"graph.wmf", 1, [](Program& p) { p.GraphForm->mnuFileSave.Pick(); }},
        {"strength.wmf", 1, [](Program& p) { p.FrmOkumFieldStrength->mnuFileSave.Pick(); }},
        {"printed.pdf", 1, [](Program& p) { p.GraphForm->CTWX1.PrintChart(); }},
        {"table.csv", 1, [](Program& p) { p.GraphForm->Export().mnuExportTable.Pick(); }},
        {"points.csv", 1, [](Program& p) { p.GraphForm->Export().mnuExportPoints.Pick(); }},
        {"rings.geojson", 1, SaveRings},
        {"rings.kml", 2, SaveRings},
        {"fit.csv", 1, [](Program& p) { p.MeasuredForm->cmdSave.Press(); }},
        {"run.csv", 1, [](Program& p) { p.ArchiveForm->cmdSave.Press(); }},
    };
    return exports;
}

}  // namespace vardel
