#pragma once

#include "forms/graphs/chart/Chart.h"

namespace vardel {

struct Doors;
struct FileDialog;
struct SharedData;

// What the menus of all graph forms do with their chart.

// Asks by the form's dialog for a file and writes the chart to it as a metafile. A failure is
// shown; the form stays as it was.
void SaveGraph(Form& form, FileDialog& dialog, Chart& chart);

// Puts a picture of the chart into the report log, by way of the clipboard.
void CopyGraphToLog(Doors& doors, Chart& chart);

// Shows the form that prints the chart, over the form that the chart is on.
void PrintGraph(SharedData& shared, Doors& doors, Form& form, Chart& chart);

// Whether graphs show measured data is shown by the caption of a menu entry, which a pick turns
// over. Takes effect with the next plot.
const char* MeasuredCaption(bool shown);
void ToggleMeasuredData(SharedData& shared, MenuItem& entry);

}  // namespace vardel
