#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <utility>

#include "forms/main/MainForm.h"
#include "qt/chart/ChartFiles.h"
#include "qt/input/FocusRing.h"
#include "qt/services/Convert.h"
#include "qt/widgets/ResultLabel.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int ColumnGap = 28;

QStringList FilesOf(const QMimeData& dropped) {
    QStringList paths;
    for (const QUrl& url : dropped.urls())
        if (url.isLocalFile()) paths << url.toLocalFile();
    return paths;
}

// MainForm on the screen: the inputs in three columns above, the results of the three models in
// three columns below.
class MainWindow : public FormWindow {
public:
    explicit MainWindow(MainForm& form);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    // Of the controls, which would take some of these keys as input.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    // Files, whose inputs are offered.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // Ctrl+1, 2 and 3, held, are what a pressed head of a model's column is for the mouse, Ctrl+L
    // what a double click on the head of the field strengths is. False for any other key.
    bool IsCommand(QKeyEvent& press);
    void EndHeldHint();

    std::pair<QGroupBox*, QGridLayout*> MakeGroup(Frame& frame);
    void AddStatusLine(MainForm& form);
    QWidget* MakeInputs(MainForm& form);
    QWidget* MakeResults(MainForm& form);
    QWidget* MakePower(MainForm& form);
    void SetTabOrder();

    struct ResultRow {
        Label& head;
        std::array<Label*, 3> models;
        std::array<Label*, 3> values;
        std::array<Label*, 3> units;
    };
    void AddResultRow(const ResultRow& labels, QGridLayout& grid, int row);

    bool TakesFiles(QEvent& event);
    void OfferInputsOf(const QStringList& paths);

    MainForm& form_;
    std::array<Label*, 3> heads_;
    Label* tables_;
    int hintKey_ = 0;  // that holds a hint; 0: none
};

MainWindow::MainWindow(MainForm& form)
    : FormWindow(form, LabelFont::Bold),
      form_(form),
      heads_{&form.lblLITU529[0], &form.lblLDavidson[0], &form.lblLCost231[0]},
      tables_(&form.lblFieldStrength) {
    auto* center = new QWidget;
    auto* column = LayoutOf<QVBoxLayout>(*center, Margin, Margin);
    column->addWidget(MakeInputs(form));
    column->addWidget(MakeResults(form));
    column->addStretch(1);
    AddStatusLine(form);
    SetScrolledContent(*center);
    new FocusRing(*this);
    SetTabOrder();
    FocusFirst(form.txtFreq);
    setAcceptDrops(true);
}

// As wide as the window happens to be, whatever it says.
void MainWindow::AddStatusLine(MainForm& form) {
    QStatusBar& bar = *statusBar();
    bar.setSizeGripEnabled(false);
    for (const auto& [label, stretch] :
         {std::pair(&form.lblStatus, 3), std::pair(&form.lblArchive, 1)}) {
        QLabel* line = MakeLabel(*label);
        line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        line->setContentsMargins(Margin, 0, Margin, 0);
        bar.addWidget(line, stretch);
    }
    bar.findChild<QLabel*>(ToQt(form.lblArchive.Name()))->setAlignment(Qt::AlignRight);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (!IsCommand(*event)) FormWindow::keyPressEvent(event);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && IsCommand(*static_cast<QKeyEvent*>(event)))
        return true;
    if (TakesFiles(*event)) return true;
    return FormWindow::eventFilter(watched, event);
}

bool MainWindow::IsCommand(QKeyEvent& press) {
    if (!binder.IsAlive()) return false;
    // On some keyboards a digit needs Shift; on the others, with Shift, its key gives none.
    const auto modifiers = press.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (modifiers != Qt::ControlModifier) return false;
    const int column = press.key() - Qt::Key_1;
    const bool isHead = column >= 0 && column < static_cast<int>(heads_.size());
    if (!isHead && press.key() != Qt::Key_L) return false;
    if (press.isAutoRepeat()) return true;
    heldKeys.Hold(press, [this, key = press.key()] {
        if (key == hintKey_) EndHeldHint();
    });
    if (!isHead) {
        tables_->DblClick.Raise();
    } else if (hintKey_ == 0) {
        hintKey_ = press.key();
        heads_[static_cast<std::size_t>(column)]->MouseDown.Raise();
    }
    return true;
}

// The release of a key that is let go in another program does not come here.
void MainWindow::changeEvent(QEvent* event) {
    FormWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow()) EndHeldHint();
}

void MainWindow::EndHeldHint() {
    if (std::exchange(hintKey_, 0) != 0 && binder.IsAlive()) heads_[0]->MouseUp.Raise();
}

std::pair<QGroupBox*, QGridLayout*> MainWindow::MakeGroup(Frame& frame) {
    auto* group = new QGroupBox;
    MakeBold(*group);
    binder.Bind(frame, *group);
    auto* grid = LayoutOf<QGridLayout>(*group, Margin);
    grid->setHorizontalSpacing(Gap);
    grid->setVerticalSpacing(Gap);
    return {group, grid};
}

QWidget* MainWindow::MakeInputs(MainForm& form) {
    const auto [group, grid] = MakeGroup(form.Frame1);
    constexpr int First = 0, Second = 4, Third = 8;
    constexpr int BoxWidth = 12;
    AddInput(form.Label1, *MakeBox(form.txtFreq, BoxWidth), &form.Label9, *grid, 0, First);
    AddInput(form.Label2, *MakeBox(form.txtDist, BoxWidth), &form.Label12, *grid, 1, First);
    AddInput(form.Label6, *MakeList(form.cmbareatype), nullptr, *grid, 2, First);
    AddInput(form.Label3, *MakeBox(form.txthb, BoxWidth), &form.Label10, *grid, 0, Second);
    AddInput(form.Label4, *MakeBox(form.txthm, BoxWidth), &form.Label11, *grid, 1, Second);
    AddInput(form.Label13, *MakeList(form.cmbcitysize), nullptr, *grid, 2, Second);
    AddInput(form.Label17, *MakeBox(form.txtPctTime, BoxWidth / 2), nullptr, *grid, 0, Third);
    AddInput(form.Label5, *MakeBox(form.txtPctLoc, BoxWidth / 2), nullptr, *grid, 1, Third);

    auto* calculate = new QPushButton;
    MakeBold(*calculate);
    binder.Bind(form.cmdLossCalc, *calculate);
    calculate->setAccessibleName(ToQt(form.cmdLossCalc.Caption()));
    grid->addWidget(calculate, 2, Third, 1, 2);
    PressByEnter(*calculate);

    auto* range = MakeLabel(form.lblHelpRange);
    grid->addWidget(range, 3, 0, 1, grid->columnCount());
    range->setMinimumHeight(range->fontMetrics().height() + 4);

    for (const int box : {First + 1, Second + 1, Third + 1}) grid->setColumnStretch(box, 1);
    for (const int gap : {First + 3, Second + 3}) grid->setColumnMinimumWidth(gap, ColumnGap);
    // Miles are wider than metres: the boxes do not move when the units change.
    for (const int unit : {First + 2, Second + 2})
        grid->setColumnMinimumWidth(unit, group->fontMetrics().horizontalAdvance("miles"));
    return group;
}

void MainWindow::AddResultRow(const ResultRow& labels, QGridLayout& grid, int row) {
    auto* head = MakeLabel(labels.head);
    head->setAlignment(Qt::AlignCenter);
    head->setMargin(6);
    grid.addWidget(head, row, 0, 2, 1);
    for (std::size_t i = 0; i < labels.models.size(); ++i) {
        const int column = 2 + 3 * static_cast<int>(i);
        AddLabel(*labels.models[i], grid, row, column)
            ->setAccessibleDescription(QString("Hold Ctrl+%1 to see the range").arg(i + 1));
        auto* value = new ResultLabel(18);
        MakeBold(*value);
        value->setMinimumWidth(WidthOf(*value, 18));
        binder.BindValue(*labels.values[i], *value,
                         labels.head.Caption() + ", " + labels.models[i]->Caption(),
                         labels.units[i]);
        grid.addWidget(value, row + 1, column);
        AddLabel(*labels.units[i], grid, row + 1, column + 1);
        grid.setColumnStretch(column, 1);
    }
}

QWidget* MainWindow::MakeResults(MainForm& form) {
    const auto [group, grid] = MakeGroup(form.Frame2);
    AddResultRow({form.Label28,
                  {&form.lblLITU529[0], &form.lblLDavidson[0], &form.lblLCost231[0]},
                  {&form.lblOH529dBLoss, &form.lblDavidson, &form.lblcost231},
                  {&form.Label35, &form.Label27, &form.Label15}},
                 *grid, 0);
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Plain);
    line->setLineWidth(2);
    binder.Bind(form.Line2, *line);
    grid->addWidget(line, 2, 0, 1, 10);
    AddResultRow({form.lblFieldStrength,
                  {&form.lblLITU529[1], &form.lblLDavidson[1], &form.lblLCost231[1]},
                  {&form.lblFITU529, &form.lblPalvernDavFS, &form.lblFCost231},
                  {&form.Label7, &form.Label32, &form.Label8}},
                 *grid, 3);
    group->findChild<QLabel*>(ToQt(form.lblFieldStrength.Name()))
        ->setAccessibleDescription("Ctrl+L lists the measured tables in the log");
    grid->addWidget(MakePower(form), 5, 0, 1, 10);
    grid->setColumnMinimumWidth(1, Gap);
    for (const int gap : {4, 7}) grid->setColumnMinimumWidth(gap, Gap);
    return group;
}

QWidget* MainWindow::MakePower(MainForm& form) {
    auto* widget = new QWidget;
    auto* grid = new QGridLayout(widget);
    grid->setContentsMargins(0, Gap, 0, FocusRing::Width);
    grid->setHorizontalSpacing(Gap);
    QLineEdit* power = MakeBox(form.txtPowerUnit, 12);
    AddInput(form.Label24, *power, nullptr, *grid, 0, 0);
    QComboBox* unit = MakeList(form.cmbPowerUnit);
    unit->setAccessibleName(ToQt(form.Label24.Caption()) + " unit");
    grid->addWidget(unit, 0, 2);
    grid->setColumnStretch(3, 1);
    return widget;
}

void MainWindow::SetTabOrder() {
    QWidget* before = nullptr;
    for (const char* name :
         {"txtFreq", "txtDist", "cmbareatype", "txthb", "txthm", "cmbcitysize", "txtPowerUnit",
          "cmdLossCalc", "txtPctLoc", "txtPctTime", "cmbPowerUnit"}) {
        auto* widget = findChild<QWidget*>(name);
        if (before != nullptr) setTabOrder(before, widget);
        widget->installEventFilter(this);
        before = widget;
    }
}

// A box would take a file's name as text.
bool MainWindow::TakesFiles(QEvent& event) {
    auto* drop = dynamic_cast<QDropEvent*>(&event);
    if (drop == nullptr || FilesOf(*drop->mimeData()).isEmpty()) return false;
    if (event.type() == QEvent::DragEnter) dragEnterEvent(static_cast<QDragEnterEvent*>(&event));
    if (event.type() == QEvent::DragMove) drop->acceptProposedAction();
    if (event.type() == QEvent::Drop) dropEvent(drop);
    return true;
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const bool blocked = QApplication::activeModalWidget() != nullptr;
    if (!blocked && !FilesOf(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

// The question waits until the program that the files come from is free again.
void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    QTimer::singleShot(0, this,
                       [this, paths = FilesOf(*event->mimeData())] { OfferInputsOf(paths); });
}

void MainWindow::OfferInputsOf(const QStringList& paths) {
    if (!binder.IsAlive()) return;
    std::vector<MainForm::GivenFile> files;
    for (const QString& path : paths)
        files.push_back({FromQt(QFileInfo(path).fileName()), TextOfFile(path)});
    form_.Run([&] { form_.OfferInputs(files); });
}

}  // namespace

std::unique_ptr<FormWindow> WindowOf(MainForm& form) { return std::make_unique<MainWindow>(form); }

}  // namespace vardel
