#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "archive/dbOperations.h"
#include "controls/FormSlot.h"
#include "services/Platform.h"
#include "terrain/ElevationModule.h"

namespace vardel {

class AboutForm;
class ArchiveForm;
class ExplainForm;
class FrmOkumFieldStrength;
class FrmPrintOut;
class FrmReport;
class GraphForm;
class MainForm;
class MeasuredForm;
class RLogClass;
class ReachForm;
class TerrainForm;
class ValuesForm;
class frmInfoScreen;
class frmLogDistRange;
class frmPrinterSelect;

// How forms reach the outside and each other: each form by its name, made when it is first touched.
struct Doors {
    vardel::dbOperations dbOperations;  // holds its archive open between runs
    Platform platform;
    FormSlot<vardel::MainForm> MainForm;
    FormSlot<vardel::FrmReport> FrmReport;
    FormSlot<vardel::GraphForm> GraphForm;
    FormSlot<vardel::FrmOkumFieldStrength> FrmOkumFieldStrength;
    FormSlot<vardel::frmLogDistRange> frmLogDistRange;
    FormSlot<vardel::frmInfoScreen> frmInfoScreen;
    FormSlot<vardel::AboutForm> AboutForm;
    FormSlot<vardel::FrmPrintOut> FrmPrintOut;
    FormSlot<vardel::frmPrinterSelect> frmPrinterSelect;
    FormSlot<vardel::ReachForm> ReachForm;
    FormSlot<vardel::TerrainForm> TerrainForm;
    FormSlot<vardel::ExplainForm> ExplainForm;
    FormSlot<vardel::MeasuredForm> MeasuredForm;
    FormSlot<vardel::ArchiveForm> ArchiveForm;
    FormSlot<vardel::ValuesForm> ValuesForm;
    std::function<RLogClass&()> ReportLog;
    // Of elevation data in these files and folders; throws ElevationError.
    std::function<std::unique_ptr<Elevations>(const std::vector<std::string>&)> OpenElevations =
        &vardel::OpenElevations;
    // What writes rasters; throws ElevationError where it is not installed.
    std::function<const ElevationModule&()> RasterModule = &InstalledElevationModule;
};

}  // namespace vardel
