#pragma once

#include <array>
#include <utility>

#include "qt/windows/FormWindow.h"

class QGridLayout;
class QGroupBox;

namespace vardel {

class MainForm;

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

}  // namespace vardel
