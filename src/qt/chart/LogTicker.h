#pragma once

#include "qt/chart/StepTicker.h"

namespace vardel {

// Ticks of a logarithmic axis at 1, 2 and 5 of each decade, or at 1 alone where there are many; in
// a view of less than a few times its beginning, at even steps.
class LogTicker : public StepTicker {
protected:
    double getTickStep(const QCPRange& range) override;
    QVector<double> createTickVector(double step, const QCPRange& range) override;
    QVector<double> createSubTickVector(int count, const QVector<double>& ticks) override;
    QString getTickLabel(double tick, const QLocale& locale, QChar format, int precision) override;

private:
    bool even_ = false;
};

}  // namespace vardel
