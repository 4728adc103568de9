#pragma once

#include "graphs/Chart.h"

namespace vardel {

class Program;

// What the menus of all graph forms do with their chart.

// Asks for a file and writes the chart to it as a metafile. A failure is told; the form stays as it
// was.
void SaveGraph(Form& form, Chart& chart);

// Puts a picture of the chart into the report log, by way of the clipboard.
void CopyGraphToLog(Program& program, Chart& chart);

// A graph whose inputs may have changed, or one that shows them, by picture and in words.
void ShowGraphState(Button& update, const std::string& pictureFile, bool good);

}  // namespace vardel
