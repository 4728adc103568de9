#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <optional>

#include "stress/RealProgram.h"

class QDialog;

namespace vardel {

class PlotForm;

// A user at work all day long: calculates, looks at graphs and opens the other windows, exports,
// prints and stores runs now and then, and clears the log, which would grow by what is written into
// it.
class DayOfUse : public QObject {
public:
    // Each of so many rounds is a hundred calculations, ten graphs, each of the other windows once
    // and an export of each kind. Files are named in the folder and nowhere else.
    DayOfUse(int rounds, const QString& folder);

    // Tells how much more resident memory the program has after all rounds than after some that
    // came before them. Empty, or the fault that it is too much.
    QString Use();

private:
    void ScheduleTick();
    void Tick();
    void Step();
    void Calculate();
    void OpenGraph(int which);
    void WorkIn(QWidget& window);
    void WorkInGraph(PlotForm& form);
    void ClearLog();
    void CloseOtherWindows();
    void Answer(QDialog& dialog);
    void EndRound();

    RealProgram real_;
    QString folder_;
    int roundsLeft_;
    int step_ = 0;
    int worked_ = 0;                // windows that blocked the others
    int depth_ = 0;                 // steps that have not returned yet
    std::function<void()> inNext_;  // what is done in the next window that waits for the user
    QWidget* worksIn_ = nullptr;
    std::optional<double> before_;  // MB
    double after_ = 0.0;
};

}  // namespace vardel
