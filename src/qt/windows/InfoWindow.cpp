#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "forms/help/frmInfoScreen.h"
#include "qt/services/Convert.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

constexpr int Margin = 24;
constexpr int Gap = 16;
constexpr int TextWidth = 640;
constexpr int CellMargin = 7;
constexpr QColor Rule{0, 96, 96};

// frmInfoScreen on the screen: a title, the text, the table, and the choice at the foot.
class InfoWindow : public FormWindow {
public:
    explicit InfoWindow(frmInfoScreen& form);

private:
    QWidget* MakeTable(frmInfoScreen& form);
};

InfoWindow::InfoWindow(frmInfoScreen& form) : FormWindow(form) {
    SetTopic(HelpTopic::HelpMenu);
    auto* grid = Content<QGridLayout>(Margin);
    grid->setVerticalSpacing(Gap);
    QLabel* title = AddLabel(form.lblTitle, *grid, 0, 0);
    MakeTitle(*title);
    QLabel* text = AddLabel(form.lblInfo, *grid, 1, 0, {});
    text->setWordWrap(true);
    text->setFixedWidth(TextWidth);
    text->setMinimumHeight(text->heightForWidth(TextWidth));
    grid->addWidget(MakeTable(form), 2, 0);

    auto* foot = new QHBoxLayout;
    auto* showNext = new QCheckBox;
    binder.Bind(form.chkShowNext, *showNext);
    foot->addWidget(showNext);
    foot->addStretch(1);
    QPushButton* ok = MakeButton(form.cmdOK);
    foot->addWidget(ok);
    grid->addLayout(foot, 3, 0);
    setFixedSize(sizeHint());
    LeaveBy(*ok);
}

// The rules between the cells are the table's own ground, seen through the gaps.
QWidget* InfoWindow::MakeTable(frmInfoScreen& form) {
    auto* table = new QWidget;
    QPalette ground = table->palette();
    ground.setColor(QPalette::Window, Rule);
    table->setPalette(ground);
    table->setAutoFillBackground(true);
    auto* grid = LayoutOf<QGridLayout>(*table, 1, 1);

    const auto addCell = [&](Label& label, int row, int column, bool head) {
        QLabel* cell = AddLabel(label, *grid, row, column, {});
        cell->setAutoFillBackground(true);
        cell->setMargin(CellMargin);
        cell->setAlignment(column == 0 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
        if (head) {
            MakeBold(*cell);
            cell->setText(ToQt(form.HeadAsRead(label)));
        }
        return cell;
    };
    grid->addWidget(new QLabel, 0, 0, 2, 1);
    QLabel* frequency = addCell(form.Label20, 0, 1, true);
    grid->addWidget(frequency, 0, 1, 1, 3);
    int column = 1;
    for (Label* head : form.ColumnHeads()) addCell(*head, 1, column++, true);
    int row = 2;
    for (const frmInfoScreen::Row& cells : form.Rows()) {
        addCell(cells.head, row, 0, true);
        column = 1;
        for (Label* cell : cells.cells) addCell(*cell, row, column++, false);
        ++row;
    }
    for (column = 1; column <= 3; ++column) grid->setColumnStretch(column, 1);
    return table;
}

}  // namespace

std::unique_ptr<FormWindow> WindowOf(frmInfoScreen& form) {
    return std::make_unique<InfoWindow>(form);
}

}  // namespace vardel
