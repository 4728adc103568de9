// Runs the real program without a display: one calculation with the default inputs, its log line on
// standard output, and a picture of every window in the folder that is named.

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "archive/RunWriter.h"
#include "archive/dbOperations.h"
#include "forms/Program.h"
#include "forms/archive/ArchiveForm.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/graphs/ValuesForm.h"
#include "forms/help/AboutForm.h"
#include "forms/help/ContextIDs.h"
#include "forms/help/frmInfoScreen.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmPrintOut.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/RLogClass.h"
#include "forms/reports/frmLogDistRange.h"
#include "forms/reports/frmPrinterSelect.h"
#include "forms/tools/ExplainForm.h"
#include "forms/tools/MeasuredForm.h"
#include "forms/tools/ReachForm.h"
#include "forms/tools/TerrainForm.h"
#include "qt/services/QtPlatform.h"
#include "services/Files.h"
#include "terrain/RasterMosaic.h"

namespace {

bool SavePicture(const QPixmap& picture, const QDir& folder, const QString& name) {
    const QString path = folder.filePath(name + ".png");
    if (!picture.save(path)) {
        std::fprintf(stderr, "The picture %s cannot be written.\n", qPrintable(path));
        return false;
    }
    return true;
}

bool TakePicture(QWidget& window, const QDir& folder, const QString& name) {
    QApplication::processEvents();
    return SavePicture(window.grab(), folder, name);
}

// The window with a menu open and one in it, which are windows of their own.
bool TakeMenuPicture(QWidget& window, const char* menu, const char* entry, const QDir& folder,
                     const QString& name) {
    auto* outer = window.findChild<QMenu*>(menu);
    auto* inner = window.findChild<QMenu*>(entry);
    const auto open = [&window](QMenu& shown, QPoint at) {
        shown.popup(window.mapToGlobal(at));
        QApplication::processEvents();
    };
    open(*outer, {0, 20});
    outer->setActiveAction(inner->menuAction());
    const QRect below = outer->actionGeometry(inner->menuAction());
    open(*inner, window.mapFromGlobal(outer->mapToGlobal(below.topRight())));
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    for (QMenu* shown : {outer, inner})
        painter.drawPixmap(window.mapFromGlobal(shown->pos()), shown->grab());
    painter.end();
    inner->close();
    outer->close();
    return SavePicture(picture, folder, name);
}

// Shows the form as its menu entry does, and closes it once its picture is taken.
bool TakeModalPicture(vardel::QtPlatform& platform, vardel::Form& form, const QDir& folder,
                      const QString& name) {
    bool good = false;
    QTimer::singleShot(0, &platform.WindowOf(form), [&] {
        good = TakePicture(platform.WindowOf(form), folder, name);
        form.CloseByFrame();
    });
    form.ShowModal();
    return good;
}

// The loss graph's menu of files that it is saved in, and its values as a table.
bool TakeExportAndValues(vardel::QtPlatform& platform, vardel::Program& program,
                         const QDir& folder) {
    program.MainForm->txtFreq.SetText("900.0");
    vardel::GraphForm& form = *program.GraphForm;
    QWidget& window = platform.WindowOf(form);
    form.Show();
    bool good = TakeMenuPicture(window, "mnuFile", "mnuFileExport", folder, "export");
    program.ChartToRead = &form.CTWX1;
    good &= TakeModalPicture(platform, *program.ValuesForm, folder, "values");
    form.CloseByFrame();
    return good;
}

// Three frequencies show each model in and out of its range; at 300 km two of them break.
bool TakeLossGraphs(vardel::QtPlatform& platform, vardel::Program& program, const QDir& pictures) {
    bool good = true;
    program.MainForm->cmbareatype.SetText("Urban");
    for (const char* frequency : {"450.0", "1500.0", "1800.0"}) {
        program.MainForm->txtFreq.SetText(frequency);
        good &= TakeModalPicture(platform, *program.GraphForm, pictures,
                                 QString("loss-graph-%1").arg(int(std::atof(frequency))));
    }
    program.GraphForm->mnuGraph300.Pick();
    program.GraphForm->cmdUpdateGraph.Press();
    program.GraphForm->CTWX1.SaveMetafile(2,
                                          pictures.filePath("loss-graph-300km.wmf").toStdString());
    good &= TakeModalPicture(platform, *program.GraphForm, pictures, "loss-graph-300km");
    return good & TakeExportAndValues(platform, program, pictures);
}

bool TakeFieldStrengthGraphs(vardel::QtPlatform& platform, vardel::Program& program,
                             const QDir& pictures) {
    constexpr std::pair<vardel::FieldStrengthGraph, const char*> graphs[] = {
        {vardel::FieldStrengthGraph::Davidson, "davidson"},
        {vardel::FieldStrengthGraph::Itu529, "itu529"},
        {vardel::FieldStrengthGraph::Us, "us"},
        {vardel::FieldStrengthGraph::Cost231, "cost231"},
        {vardel::FieldStrengthGraph::Comparison, "comparison"},
    };
    bool good = true;
    program.MainForm->txtFreq.SetText("450.0");
    program.ShowMeasuredData = true;
    for (const auto& [graph, name] : graphs) {
        program.GraphMode = graph;
        auto& form = *program.FrmOkumFieldStrength;
        for (const auto& [distance, km] :
             {std::pair(&form.mnuModelDist300, "-300km"), std::pair(&form.mnuModelDist100, "")}) {
            distance->Pick();
            form.cmdUpdateGraph.Press();
            form.Show();
            good &= TakePicture(platform.WindowOf(form), pictures,
                                QString("field-strength-%1%2").arg(name, km));
        }
        form.CloseByFrame();
    }
    return good;
}

// A run of the distance range report in its middle, ended once its picture is taken.
bool TakeRunningRange(vardel::QtPlatform& platform, vardel::Program& program, const QDir& folder) {
    bool good = false;
    vardel::frmLogDistRange& form = *program.frmLogDistRange;
    QWidget& window = platform.WindowOf(form);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &window, [&] {
        constexpr float Far = 100.0F;
        if (form.pgbDist.Value() < Far) return;
        look.stop();
        good = window.grab().save(folder.filePath("distance-range-run.png"));
        form.cmdExitCalc.Press();
    });
    look.start(1);
    QTimer::singleShot(0, &window, [&] {
        form.txtEnd.SetText("300");
        form.txtStep.SetText("0.005");
        form.cmdLogDistRange.Press();
    });
    form.ShowModal();
    return good;
}

// The tools for a station of a rural fire brigade, and what they say of a wrong entry.
bool TakeTools(vardel::QtPlatform& platform, vardel::Program& program, const QDir& pictures) {
    vardel::MainForm& main = *program.MainForm;
    for (const auto& [box, text] :
         {std::pair(&main.txtFreq, "390.0"), std::pair(&main.txtDist, "10.0"),
          std::pair(&main.txthb, "45.0"), std::pair(&main.txtPctLoc, "95")})
        box->SetText(text);
    main.cmbareatype.SetText("Suburban");
    main.cmbPowerUnit.SetListIndex(0);
    main.txtPowerUnit.SetText("25");
    main.txtPowerUnit.LostFocus.Raise();
    vardel::ReachForm& reach = *program.ReachForm;
    reach.site.txtLatitude.SetText("52 30 12 N");
    reach.site.txtLongitude.SetText("13.4");
    bool good = TakeModalPicture(platform, reach, pictures, "reach");
    program.FieldStrengthThreshold.shown = program.LossThreshold.shown = true;
    for (const auto& [graph, name] :
         {std::pair(vardel::FieldStrengthGraph::Comparison, "reach-graph"),
          std::pair(vardel::FieldStrengthGraph::Itu529, "reach-graph-family")}) {
        program.GraphMode = graph;
        good &= TakeModalPicture(platform, *program.FrmOkumFieldStrength, pictures, name);
    }
    program.GraphForm->BringUpToDate();
    program.GraphForm->CTWX1.SaveMetafile(2, pictures.filePath("reach-graph.wmf").toStdString());
    good &= TakeModalPicture(platform, *program.GraphForm, pictures, "reach-graph-loss");
    program.FieldStrengthThreshold.shown = program.LossThreshold.shown = false;
    vardel::ReachForm& wrong = *program.ReachForm;
    wrong.wanted.cmbWanted.SetText("Received power");
    wrong.wanted.txtWanted.SetText("-97");
    wrong.wanted.txtGain.SetText("2 dBi");
    good &= TakeModalPicture(platform, wrong, pictures, "reach-wrong");
    good &= TakeModalPicture(platform, *program.ExplainForm, pictures, "explain");
    main.txtPctLoc.SetText("50");
    good &= TakeModalPicture(platform, *program.MeasuredForm, pictures, "measured-none");
    for (const auto& [box, text] :
         {std::pair(&main.txtFreq, "450.0"), std::pair(&main.txthb, "100.0")})
        box->SetText(text);
    main.cmbareatype.SetText("Urban");
    main.txtPowerUnit.SetText("1000");
    main.txtPowerUnit.LostFocus.Raise();
    program.MeasuredForm->txtPercents.SetText("50, 90");
    return good & TakeModalPicture(platform, *program.MeasuredForm, pictures, "measured");
}

// A made ground: waves of several lengths, rougher where they are higher.
std::unique_ptr<vardel::Elevations> MadeHills(const std::vector<std::string>&) {
    constexpr int Size = 2000;
    std::vector<float> metres(static_cast<std::size_t>(Size) * Size);
    for (int row = 0; row < Size; ++row)
        for (int column = 0; column < Size; ++column) {
            double height = 260.0, weight = 130.0, x = 0.011 * column, y = 0.014 * row;
            for (int octave = 0; octave < 7; ++octave) {
                height += weight * std::sin(x + 1.7 * std::sin(0.6 * y)) *
                          std::cos(y + 1.3 * std::sin(0.7 * x));
                weight *= 0.48;
                std::tie(x, y) = std::pair(1.6 * x - 1.1 * y, 1.1 * x + 1.6 * y);
            }
            metres[static_cast<std::size_t>(row) * Size + static_cast<std::size_t>(column)] =
                static_cast<float>(height);
        }
    return vardel::ElevationsOfArray({Size, Size, {5.5, 0.001, 0.0, 50.8, 0.0, -0.001}},
                                     std::move(metres));
}

bool TakeTerrain(vardel::QtPlatform& platform, vardel::Program& program, const QDir& pictures) {
    program.OpenElevations = MadeHills;
    vardel::TerrainForm& form = *program.TerrainForm;
    for (const auto& [box, text] :
         {std::pair(&form.site.txtLatitude, "49.8"), std::pair(&form.site.txtLongitude, "6.5"),
          std::pair(&form.txtFiles, "hills.tif"), std::pair(&form.wanted.txtWanted, "40")})
        box->SetText(text);
    form.cmdRead.Press();
    form.lstAzimuths.Select(9);
    form.area.cmbArea.SetListIndex(1);
    form.area.cmbArea.Click.Raise();
    form.map.SetPointed(vardel::PlaceAround{9.0, 118.0});
    form.map.Point.Raise();
    return TakeModalPicture(platform, form, pictures, "terrain");
}

// An archive of three runs, one of which lies over the graphs.
bool TakeArchive(vardel::QtPlatform& platform, vardel::Program& program, const QDir& pictures,
                 const std::string& path) {
    vardel::dbOperations archive(platform);
    constexpr std::array<std::tuple<double, const char*, const char*>, 3> runs = {
        {{450.0, "Urban", "Control room, first plan"},
         {450.0, "Suburban", "Hill, with the new mast"},
         {900.0, "Open", ""}}};
    for (const auto& [f, area, comment] : runs) {
        archive.OpenArchive(path);
        vardel::WriteRun(archive, {"hb:100.0,hm:1.5,frq:" + std::to_string(int(f)) + ".0," + area +
                                       ",,Power:1.kW e.r.p.,50%T,50%L",
                                   comment,
                                   vardel::CalendarTime{2026, 3, 9, 14, 5},
                                   vardel::Quantity::Loss,
                                   {f, 0, 100, 1.5, area, "Small/Medium", 50, 50},
                                   1000.0,
                                   100.0});
    }
    program.ArchiveFile = path;
    vardel::ArchiveForm& form = *program.ArchiveForm;
    form.lstRuns.Select(1);
    form.cmdLay.Press();
    program.GraphForm->BringUpToDate();
    bool good = TakeModalPicture(platform, *program.GraphForm, pictures, "loss-graph-with-run");
    form.lstRuns.Select(2);
    form.cmdDelete.Press();
    form.lstRuns.Select(1);
    return good & TakeModalPicture(platform, form, pictures, "archive");
}

// The windows of printing, and what they print to PDF files.
bool TakePrinting(vardel::QtPlatform& platform, vardel::Program& program, const QDir& pictures) {
    bool good = TakeModalPicture(platform, *program.FrmPrintOut, pictures, "print-graph");
    good &= TakeModalPicture(platform, *program.frmPrinterSelect, pictures, "printer-selection");
    vardel::QtPrinters& printers = platform.GetPrinters();
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        good &= TakePicture(*dialog, pictures, "printer-setup");
        dialog->close();
    });
    printers.ShowPrinterSetup();
    printers.SetCurrentPrinter(vardel::QtPrinters::PdfPrinter);
    const auto file = [&](const char* name) { return pictures.filePath(name).toStdString(); };
    const vardel::Chart& chart = program.GraphForm->CTWX1;
    printers.SetOrientation(vardel::PageOrientation::Portrait);
    printers.PrintChart(chart, file("loss-graph-portrait.pdf"));
    printers.SetOrientation(vardel::PageOrientation::Landscape);
    printers.PrintChart(chart, file("loss-graph-landscape.pdf"));
    vardel::RichTextBox& log = program.FrmReport->rtbLog;
    printers.SetFont(log.Font());
    printers.PrintText({});
    printers.PrintText(log.Content().PlainText());
    printers.EndDocument("Calculation Log", file("report-log.pdf"));
    return good;
}

// scratch stands for the folder of the program, with measured data for the graphs.
int Tour(const QDir& pictures, const std::string& scratch) {
    vardel::ReplaceFile(scratch + "/measured.csv",
                        "0,450,0.5,Urban,1.5,1,100\n"
                        "5,61.5\n10,49.9\n20,38.2\n40,29.5\n70,17.1\n110,4.2\n");
    vardel::QtPlatform platform;
    vardel::Platform services = platform.Services();
    services.programDirectory = scratch;
    for (const char* picture : {"/goodbutton.bmp", "/badbutton.bmp", "/about.bmp"})
        QFile::copy(QApplication::applicationDirPath() + picture,
                    QString::fromStdString(scratch + picture));
    vardel::Program program(services);
    program.Start();
    QWidget& window = platform.WindowOf(*program.MainForm);
    auto* calculate = window.findChild<QPushButton*>("cmdLossCalc");
    calculate->click();
    bool good = TakePicture(window, pictures, "main-window");
    std::fputs(program.FrmReport->rtbLog.Text().c_str(), stdout);
    // A log with something to look at: other areas, and models out of their range.
    for (const char* frequency : {"900.0", "1800.0"}) {
        program.MainForm->txtFreq.SetText(frequency);
        program.MainForm->cmbareatype.SetText("Suburban");
        calculate->click();
    }
    good &= TakeModalPicture(platform, *program.FrmReport, pictures, "report-log");
    good &= TakeModalPicture(platform, *program.frmLogDistRange, pictures, "distance-range");
    good &= TakeRunningRange(platform, program, pictures);
    good &= TakeModalPicture(platform, *program.frmInfoScreen, pictures, "introduction");
    good &= TakeModalPicture(platform, *program.AboutForm, pictures, "about");
    good &= TakeLossGraphs(platform, program, pictures);
    good &= TakeFieldStrengthGraphs(platform, program, pictures);
    good &= TakePrinting(platform, program, pictures);
    good &= TakeTools(platform, program, pictures);
    good &= TakeTerrain(platform, program, pictures);
    QDir::setCurrent(QString::fromStdString(scratch));  // the archive's window shows its path
    const std::string archive = "runs.mdb";
    QFile::copy(QApplication::applicationDirPath() + "/New Model Data.mdb",
                QString::fromStdString(archive));
    good &= TakeArchive(platform, program, pictures, archive);
    platform.GetHelp().ShowTopic(static_cast<int>(vardel::HelpTopic::None));
    good &= TakePicture(*platform.GetHelp().Window(), pictures, "help");
    platform.GetHelp().ShowTopic(static_cast<int>(vardel::HelpTopic::Davidson));
    good &= TakePicture(*platform.GetHelp().Window(), pictures, "help-model");
    return good ? 0 : 1;
}

// Whoever looks at the tour's output has no use for what an offscreen desktop cannot do.
void TellButLimits(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith("This plugin does not support "))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || *argv[1] == '-') {
        std::fprintf(stderr, "usage: vardel-tour FOLDER\n");
        return 2;
    }
    const QTemporaryDir scratch;
    if (!scratch.isValid()) return 1;
    for (const char* folder : {"XDG_STATE_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
        qputenv(folder, scratch.path().toUtf8());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        // The screen that there is without a display is smaller than the windows.
        const std::string screen = scratch.filePath("screen.json").toStdString();
        vardel::ReplaceFile(screen,
                            R"({"screens": [{"name": "usual", "x": 0, "y": 0, "width": 1400,
                                "height": 1000, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
        qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + screen).c_str());
    }
    qInstallMessageHandler(TellButLimits);
    QApplication application(argc, argv);
    vardel::SetUpApplication(application);
    const QDir pictures(QDir::current().filePath(QString::fromLocal8Bit(argv[1])));
    if (!pictures.mkpath(".")) return 1;
    return Tour(pictures, scratch.path().toStdString());
}
