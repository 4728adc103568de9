#include "qt/printing/PrinterSetupDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPrinterInfo>
#include <QRadioButton>

#include "qt/printing/QtPrinters.h"
#include "qt/services/Convert.h"

namespace vardel {

namespace {

// Of a printer that names none, and of files.
QList<QPageSize> UsualPapers() {
    QList<QPageSize> papers;
    for (const auto id : {QPageSize::A4, QPageSize::A3, QPageSize::A5, QPageSize::Letter,
                          QPageSize::Legal, QPageSize::Tabloid})
        papers << QPageSize(id);
    return papers;
}

}  // namespace

PrinterSetupDialog::PrinterSetupDialog(QtPrinters& printers, QWidget* parent)
    : QDialog(parent),
      printers_(printers),
      printer_(new QComboBox),
      paper_(new QComboBox),
      portrait_(new QRadioButton("P&ortrait")),
      landscape_(new QRadioButton("&Landscape")) {
    setWindowTitle("Printer Setup");
    printer_->setObjectName("printer");
    paper_->setObjectName("paper");
    portrait_->setObjectName("portrait");
    landscape_->setObjectName("landscape");
    for (const std::string& name : printers.PrinterNames()) printer_->addItem(ToQt(name));
    printer_->setCurrentText(ToQt(printers.CurrentPrinter()));
    const bool landscape = printers.Orientation() == PageOrientation::Landscape;
    (landscape ? landscape_ : portrait_)->setChecked(true);
    ShowPapers();
    connect(printer_, &QComboBox::currentIndexChanged, this, [this] { ShowPapers(); });

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* rows = new QFormLayout(this);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->addRow("&Printer:", printer_);
    rows->addRow("P&aper:", paper_);
    rows->addRow("Orientation:", portrait_);
    rows->addRow(QString(), landscape_);
    rows->addRow(buttons);
}

// Those of the printer that is picked, with the one that it has.
void PrinterSetupDialog::ShowPapers() {
    const QString name = printer_->currentText();
    QList<QPageSize> papers = QPrinterInfo::printerInfo(name).supportedPageSizes();
    if (papers.isEmpty()) papers = UsualPapers();
    const QPageSize present = printers_.LayoutOf(FromQt(name)).pageSize();
    if (!papers.contains(present)) papers.prepend(present);
    paper_->clear();
    for (const QPageSize& paper : papers) paper_->addItem(paper.name(), QVariant::fromValue(paper));
    paper_->setCurrentIndex(static_cast<int>(papers.indexOf(present)));
}

void PrinterSetupDialog::accept() {
    printers_.SetCurrentPrinter(FromQt(printer_->currentText()));
    QPageLayout& layout = printers_.LayoutOf(printers_.CurrentPrinter());
    const QMarginsF margins = layout.margins();
    layout.setPageSize(paper_->currentData().value<QPageSize>());
    layout.setMargins(margins);
    printers_.SetOrientation(landscape_->isChecked() ? PageOrientation::Landscape
                                                     : PageOrientation::Portrait);
    QDialog::accept();
}

}  // namespace vardel
