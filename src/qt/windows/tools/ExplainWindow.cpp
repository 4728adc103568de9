#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include "forms/tools/ExplainForm.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

// ExplainForm on the screen. Escape closes it.
class ExplainWindow : public FormWindow {
public:
    explicit ExplainWindow(ExplainForm& form) : FormWindow(form) {
        auto* grid = Content<QGridLayout>(WindowMargin, WindowMargin / 2);
        auto* models = MakeList(form.cmbModel);
        AddInput(form.lblModel, *models, nullptr, *grid, 0, 0);
        grid->setColumnStretch(2, 1);
        grid->addWidget(MakeLabel(form.lblPath), 1, 0, 1, 3);

        QScrollArea* terms = MakeFixedText(form.lblTerms, "Terms of the formula");
        grid->addWidget(terms, 2, 0, 1, 3);
        grid->setRowStretch(2, 1);

        grid->addWidget(MakeButtonRow({&form.cmdCopy, &form.cmdClose}), 3, 0, 1, 3);
        models->setFocus();
        OnKeys({Qt::Key_Escape}, [this] { close(); });
        constexpr int LinesShown = 31;
        const QFontMetrics metrics(terms->widget()->font());
        ResizeWithinScreen({metrics.horizontalAdvance(QString(128, '0')) + 4 * WindowMargin,
                            metrics.lineSpacing() * LinesShown + 10 * WindowMargin});
    }
};

}  // namespace

std::unique_ptr<FormWindow> WindowOf(ExplainForm& form) {
    return std::make_unique<ExplainWindow>(form);
}

}  // namespace vardel
