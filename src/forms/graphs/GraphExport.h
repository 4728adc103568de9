#pragma once

#include "forms/graphs/chart/Chart.h"

namespace vardel {

// Saves in a file that the user names, in the chart's frame. A failure is shown.
void SavePicture(Form& form, Chart& chart, ChartFileKind kind);
// A column for each curve, for spreadsheets.
void SaveTable(Form& form, Chart& chart);
// A line for each point.
void SavePoints(Form& form, Chart& chart);

// The entries for all of that behind the others of a graph's File menu, and what goes into the
// files.
class GraphExport {
public:
    GraphExport(MenuItem& fileMenu, Chart& chart);

    MenuItem mnuFileSep;
    MenuItem mnuFileExport;
    MenuItem mnuExportPng{mnuFileExport, "mnuExportPng", "Picture as &PNG ..."};
    MenuItem mnuExportSvg{mnuFileExport, "mnuExportSvg", "Picture as &SVG ..."};
    MenuItem mnuExportPdf{mnuFileExport, "mnuExportPdf", "Picture as P&DF ..."};
    MenuItem mnuExportTable{mnuFileExport, "mnuExportTable", "&Table as CSV ..."};
    MenuItem mnuExportPoints{mnuFileExport, "mnuExportPoints", "P&oints as CSV ..."};
    MenuItem mnuExportSep{mnuFileExport, "mnuExportSep", "-"};
    MenuItem mnuExportZoomed{mnuFileExport, "mnuExportZoomed", "As &Zoomed"};
    MenuItem mnuExportSize{mnuFileExport, "mnuExportSize", "Picture Si&ze ..."};

private:
    void AskSize();

    Chart& chart_;
};

}  // namespace vardel
