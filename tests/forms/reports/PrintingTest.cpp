#include <gmock/gmock.h>

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/reports/FrmPrintOut.h"
#include "forms/reports/frmPrinterSelect.h"
#include "services/Files.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Printing : testing::Test {
    FrmPrintOut& PrintOut() { return *run.program.FrmPrintOut; }
    GraphForm& Graph() { return *run.program.GraphForm; }
    PageOrientation& LaserOrientation() { return run.platform.orientations["Laser"]; }

    RunningProgram run;
    FakePlatform& platform = run.platform;
};

TEST_F(Printing, EachGraphFormPrintsItsOwnChartAsThePrinterStands) {
    platform.whileShown["FrmPrintOut"] = [&] {
        PrintOut().cmdPrint.Press();
        PrintOut().cmdOK.Press();
    };
    Graph().cmdPrintGraph.Press();
    run.program.FrmOkumFieldStrength->cmdPrintGraph.Press();
    LaserOrientation() = PageOrientation::Landscape;
    Graph().mnuFilePrint.Pick();
    run.program.FrmOkumFieldStrength->mnuFilePrint.Pick();
    EXPECT_THAT(platform.printed, ElementsAre("Laser 1 : CTWX1\n", "Laser 1 : CTWXfs\n",
                                              "Laser 2 : CTWX1\n", "Laser 2 : CTWXfs\n"));

    run.program.FrmOkumFieldStrength->Unload();
    EXPECT_EQ(run.program.ChartToPrint, nullptr) << "the chart went with its form";
    PrintOut().cmdPrint.Press();
    PrintOut().cmdPrintSetup.Press();
    EXPECT_EQ(platform.printed.size(), 4U);
}

TEST_F(Printing, OnlySetupFromTheSmallFormTurnsToLandscapeAndOnlyItsFrameTurnsBack) {
    Graph().mnuFilePrintSetup.Pick();
    run.program.FrmOkumFieldStrength->mnuFilePrinterSetup.Pick();
    EXPECT_THAT(platform.setupsAt,
                ElementsAre(PageOrientation::Portrait, PageOrientation::Portrait));

    Graph().cmdPrintGraph.Press();
    PrintOut().cmdPrintSetup.Press();
    EXPECT_THAT(platform.setupsAt, ElementsAre(PageOrientation::Portrait, PageOrientation::Portrait,
                                               PageOrientation::Landscape))
        << "before the dialog opens";
    PrintOut().cmdOK.Press();
    EXPECT_FALSE(PrintOut().Visible());
    EXPECT_TRUE(run.program.FrmPrintOut.Loaded());
    EXPECT_EQ(LaserOrientation(), PageOrientation::Landscape);

    Graph().cmdPrintGraph.Press();  // does not read the orientation anew
    PrintOut().CloseByFrame();
    EXPECT_FALSE(run.program.FrmPrintOut.Loaded());
    EXPECT_EQ(LaserOrientation(), PageOrientation::Portrait);
}

TEST_F(Printing, ThePrinterFormChoosesByTheExactName) {
    auto& slot = run.program.frmPrinterSelect;
    const auto choose = [&](const char* text) {
        platform.whileShown["frmPrinterSelect"] = [&slot, text] {
            slot->cboPrinterNames.SetText(text);
            slot->cmdSelect.Press();
        };
        run.program.FrmReport->mnuFilePrinterSetup.Pick();
        EXPECT_FALSE(slot.Loaded());
        return platform.printer;
    };
    EXPECT_THAT(slot->cboPrinterNames.Items(), ElementsAre("Laser", "Plotter", "File"));
    EXPECT_EQ(slot->cboPrinterNames.Text(), "Laser");
    EXPECT_EQ(choose("Plotter"), "Plotter");
    EXPECT_EQ(choose("laser"), "Plotter");
    EXPECT_EQ(choose(""), "Plotter");
    slot->cboPrinterNames.SetText("Laser");
    slot->CloseByFrame();
    EXPECT_EQ(platform.printer, "Plotter");
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());

    platform.printer = "gone";
    EXPECT_EQ(slot->cboPrinterNames.Text(), "");
}

TEST_F(Printing, TheLogGoesOutAsPlainTextInLandscape) {
    run.program.ReportLog().SetUnderline(true);
    run.program.ReportLog().AddLine("a result");
    run.Log().InsertPicture({"png", 10, 10});
    const std::string document =
        "Laser 2 : Calculation Log\n\n" + run.Log().Content().PlainText() + '\n';
    run.program.FrmReport->cmdPrint.Press();
    run.program.FrmReport->mnuFilePrint.Pick();
    EXPECT_THAT(platform.printed, ElementsAre(document, document));
    EXPECT_EQ(platform.printFont.name, "Courier New");
    EXPECT_EQ(LaserOrientation(), PageOrientation::Landscape);
    EXPECT_EQ(run.program.FrmReport->MousePointer(), Form::Pointer::Normal);
}

TEST_F(Printing, AFailureIsToldAndTheNextDocumentBeginsEmpty) {
    platform.printerFails = true;
    run.program.FrmReport->cmdPrint.Press();
    Graph().CTWX1.PrintChart();
    platform.printer.clear();
    run.program.FrmReport->cmdPrint.Press();
    EXPECT_THAT(platform.TakeMessages(),
                ElementsAre("Error in printing on Laser: out of paper",
                            "Error in printing on Laser: out of paper",
                            "There is no printer to print on. Choose one by Printer Setup."));
    EXPECT_EQ(run.program.FrmReport->MousePointer(), Form::Pointer::Normal);
    platform.printerFails = false;
    platform.printer = "Laser";
    run.Log().SetContent({});
    run.program.FrmReport->cmdPrint.Press();
    EXPECT_THAT(platform.printed, ElementsAre("Laser 2 : Calculation Log\n\n\n"));
}

TEST_F(Printing, APrinterOfFilesAsksForOne) {
    platform.printer = "File";
    Graph().CTWX1.PrintChart();
    EXPECT_EQ(platform.saveDialogs.back().name, "dB Loss Calculation.pdf");
    EXPECT_THAT(platform.printed, IsEmpty()) << "cancelled";
    const std::string path = platform.folder.Path("there.pdf");
    platform.saveChoice = {path, 1};
    ReplaceFile(path, "old");
    platform.answers.push(Answer::No);
    Graph().CTWX1.PrintChart();
    EXPECT_THAT(platform.printed, IsEmpty()) << "not to be overwritten";
    Graph().CTWX1.PrintChart();
    EXPECT_THAT(platform.printed, ElementsAre("File 1 " + path + ": CTWX1\n"));
    platform.TakeMessages();
    platform.printerFails = true;
    run.program.FrmReport->cmdPrint.Press();
    EXPECT_EQ(platform.messages.back().text, "Error in saving file " + path);
}

}  // namespace
}  // namespace vardel
