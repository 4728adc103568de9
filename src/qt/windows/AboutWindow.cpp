#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "forms/help/AboutForm.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

constexpr int Margin = 24;
constexpr int TextWidth = 320;

// AboutForm on the screen: the picture, and the program's name beside it.
class AboutWindow : public FormWindow {
public:
    explicit AboutWindow(AboutForm& form) : FormWindow(form) {
        auto* grid = Content<QGridLayout>(0);
        grid->setContentsMargins(0, 0, Margin, 0);
        grid->setHorizontalSpacing(Margin);
        grid->setVerticalSpacing(Margin / 2);

        auto* picture = new QLabel;
        binder.Bind(form.Image1, *picture);
        grid->addWidget(picture, 0, 0, 8, 1);
        grid->setRowStretch(0, 1);
        QLabel* name = AddLabel(form.Label1, *grid, 1, 1, {});
        MakeTitle(*name);
        name->setWordWrap(true);
        name->setFixedWidth(TextWidth);
        auto* line = new QFrame;
        line->setFrameStyle(QFrame::HLine | QFrame::Plain);
        line->setLineWidth(2);
        binder.Bind(form.Line1, *line);
        grid->addWidget(line, 2, 1);
        AddLabel(form.Label3, *grid, 3, 1);
        AddLabel(form.lblVersion, *grid, 4, 1);
        grid->setRowStretch(5, 1);
        QPushButton* ok = MakeButton(form.cmdOK);
        grid->addWidget(ok, 6, 1, Qt::AlignRight);
        grid->setRowMinimumHeight(7, Margin / 2);
        setFixedSize(sizeHint());
        LeaveBy(*ok);
    }
};

}  // namespace

std::unique_ptr<FormWindow> WindowOf(AboutForm& form) {
    return std::make_unique<AboutWindow>(form);
}

}  // namespace vardel
