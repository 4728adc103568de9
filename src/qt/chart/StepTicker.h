#pragma once

#include <qcustomplot.h>

namespace vardel {

// Ticks at a fixed step for as long as that gives a readable number of them; in a view that is
// zoomed in or out, at the steps of a plain ticker. Labels have the decimals that the step needs.
class StepTicker : public QCPAxisTicker {
public:
    // A step of 0: a plain ticker's at any zoom.
    explicit StepTicker(double step = 0.0) : step_(step) {}

    // How many decimals distinguish each multiple of the step from the next; at most 9.
    static int DecimalsOf(double step);

protected:
    double getTickStep(const QCPRange& range) override;
    QString getTickLabel(double tick, const QLocale& locale, QChar format, int precision) override;

private:
    double step_;
    double shownStep_ = 1.0;
};

}  // namespace vardel
