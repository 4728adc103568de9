#pragma once

#include <memory>
#include <string>

#include "archive/dbOperations.h"
#include "controls/FormSlot.h"
#include "engine/MeasuredData.h"
#include "engine/PowerUnits.h"
#include "services/Color.h"
#include "services/Platform.h"

namespace vardel {

class AboutForm;
class FrmOkumFieldStrength;
class Chart;
class FrmPrintOut;
class FrmReport;
class GraphForm;
class MainForm;
class RLogClass;
class frmInfoScreen;
class frmLogDistRange;
class frmPrinterSelect;

// The forms by name, each made when it is first touched, and the data that several forms share.
class Program {
public:
    explicit Program(Platform services);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    // Loads and shows the main form; the program runs for as long as that is loaded.
    void Start();
    // Once the main form is up: the introduction over it, for who wants to see it.
    void Introduce();
    // The session ends or the program is told to go: saves what an exit would that retains the log,
    // with no question asked.
    void EndSession();

    // The report log, made on first use.
    RLogClass& ReportLog();

    Platform platform;

    std::string TempLogFile;  // the log's file; empty: the log has none
    std::string ArchiveFile;  // chosen since the start; empty: none yet
    vardel::dbOperations dbOperations{platform.windows};
    vardel::MeasuredTable MeasuredTable;
    int GraphMode = 0;                     // of the field strength graphs, see FieldStrengthGraph
    bool ShowMeasuredData = false;         // whether graphs lay measured data over their curves
    Form* HelpOwnerWindow = nullptr;       // whom the help viewer belongs to
    Chart* ChartToPrint = nullptr;         // what FrmPrintOut works on
    Color OutOfRangeColor{255, 150, 150};  // of what its model does not cover
    vardel::PowerUnit PowerUnit = vardel::PowerUnit::Kilowatts;  // of the power box

    FormSlot<vardel::MainForm> MainForm;
    FormSlot<vardel::FrmReport> FrmReport;
    FormSlot<vardel::GraphForm> GraphForm;
    FormSlot<vardel::FrmOkumFieldStrength> FrmOkumFieldStrength;
    FormSlot<vardel::frmLogDistRange> frmLogDistRange;
    FormSlot<vardel::frmInfoScreen> frmInfoScreen;
    FormSlot<vardel::AboutForm> AboutForm;
    FormSlot<vardel::FrmPrintOut> FrmPrintOut;
    FormSlot<vardel::frmPrinterSelect> frmPrinterSelect;

private:
    std::unique_ptr<RLogClass> reportLog_;
};

}  // namespace vardel
