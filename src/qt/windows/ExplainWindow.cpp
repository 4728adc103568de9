#include "qt/windows/ExplainWindow.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include "forms/tools/ExplainForm.h"

namespace vardel {

namespace {

constexpr int Margin = 16;

}  // namespace

ExplainWindow::ExplainWindow(ExplainForm& form) : FormWindow(form) {
    auto* center = new QWidget;
    auto* grid = new QGridLayout(center);
    grid->setContentsMargins(Margin, Margin, Margin, Margin);
    grid->setSpacing(Margin / 2);
    auto* models = MakeList(form.cmbModel);
    AddInput(form.lblModel, *models, nullptr, *grid, 0, 0);
    grid->setColumnStretch(2, 1);
    grid->addWidget(MakeLabel(form.lblPath), 1, 0, 1, 3);

    auto* terms = new QLabel;
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setFamilies({"Liberation Mono", font.family()});
    terms->setFont(font);
    terms->setMargin(Margin / 2);
    terms->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    terms->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    binder.Bind(form.lblTerms, *terms);
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setWidget(terms);
    grid->addWidget(area, 2, 0, 1, 3);
    grid->setRowStretch(2, 1);

    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (Button* button : {&form.cmdCopy, &form.cmdClose}) row->addWidget(MakeButton(*button));
    grid->addLayout(row, 3, 0, 1, 3);
    setCentralWidget(center);
    models->setFocus();
    OnKeys({Qt::Key_Escape}, [this] { close(); });
    constexpr int LinesShown = 31;
    const QFontMetrics metrics(font);
    ResizeWithinScreen({metrics.horizontalAdvance(QString(122, '0')) + 4 * Margin,
                        metrics.lineSpacing() * LinesShown + 10 * Margin});
}

}  // namespace vardel
