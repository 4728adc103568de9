#include "qt/windows/FormWindow.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>

#include "forms/tools/WantedBoxes.h"
#include "qt/look/DesktopColors.h"
#include "qt/services/Convert.h"

namespace vardel {

namespace {

constexpr double RoomOnScreen = 0.95;  // beside a window's frame

}  // namespace

void MakeBold(QWidget& widget) {
    QFont font = widget.font();
    font.setBold(true);
    widget.setFont(font);
}

void MakeTitle(QWidget& widget) {
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * 1.8);
    font.setBold(true);
    widget.setFont(font);
}

int WidthOf(const QWidget& widget, int characters) {
    return widget.fontMetrics().horizontalAdvance(QString(characters, '0'));
}

FormWindow::FormWindow(Form& form, LabelFont labelFont) : form_(&form), labelFont_(labelFont) {
    setObjectName(ToQt(form.Name()));
    AddMenuBar();
    form.SetView([this] { ShowProperties(); });
    ShowProperties();
}

FormWindow::~FormWindow() { Release(); }

void FormWindow::Release() {
    if (form_ == nullptr) return;
    LetGo();
    hide();
}

void FormWindow::LetGo() {
    form_->SetView({});
    form_ = nullptr;
    binder.Release();
}

void FormWindow::ShowProperties() {
    setWindowTitle(ToQt(form_->Caption()));
    const HelpTopic own = form_->HelpContextID();
    setProperty("helpTopic", static_cast<int>(own != HelpTopic::None ? own : topic_));
    setProperty("heldTopic", static_cast<int>(form_->HeldTopic()));
    QPalette colors = palette();
    colors.setColor(QPalette::Window, GroundOf(*form_));
    setPalette(colors);
    if (form_->MousePointer() == Form::Pointer::Hourglass)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
    if (!form_->Visible()) hide();
}

void FormWindow::AddMenuBar() {
    for (MenuItem* menu : form_->MenuBar()) binder.BindMenu(*menu, *menuBar());
    // The bar keeps the desktop's colours on a form that has its own.
    menuBar()->setPalette(QApplication::palette());
    menuBar()->setAutoFillBackground(true);
}

QLabel* FormWindow::AddLabel(Label& label, QGridLayout& grid, int row, int column,
                             Qt::Alignment alignment) {
    QLabel* widget = MakeLabel(label);
    grid.addWidget(widget, row, column, alignment);
    return widget;
}

QLabel* FormWindow::MakeLabel(Label& label) {
    auto* widget = new QLabel;
    if (labelFont_ == LabelFont::Bold) MakeBold(*widget);
    binder.Bind(label, *widget);
    // The ground shows as it is, with what a frame shades it by.
    if (label.BackColor() == form_->BackColor()) widget->setAutoFillBackground(false);
    return widget;
}

QLabel* FormWindow::MakeNote(Label& label) {
    QLabel* widget = MakeLabel(label);
    widget->setWordWrap(true);
    return widget;
}

void FormWindow::AddWanted(WantedBoxes& wanted, QGridLayout& grid, int row) {
    constexpr int BoxWidth = 8;
    AddInput(wanted.lblWanted, *MakeList(wanted.cmbWanted), nullptr, grid, row, 0);
    auto* value = MakeBox(wanted.txtWanted, BoxWidth);
    value->setAccessibleName("Wanted value");
    grid.addWidget(value, row, 2);
    AddLabel(wanted.lblWantedUnit, grid, row, 3)
        ->setMinimumWidth(fontMetrics().horizontalAdvance("dB(µV/m)"));
    AddInput(wanted.lblGain, *MakeBox(wanted.txtGain, BoxWidth), &wanted.lblGainUnit, grid, row + 1,
             1);
    AddInput(wanted.lblCable, *MakeBox(wanted.txtCable, BoxWidth), &wanted.lblCableUnit, grid,
             row + 1, 4);
}

QScrollArea* FormWindow::MakeFixedText(Label& label, const QString& name) {
    auto* text = new QLabel;
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setFamilies({"Liberation Mono", font.family()});
    text->setFont(font);
    text->setMargin(WindowMargin / 2);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    binder.Bind(label, *text);
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setWidget(text);
    area->setAccessibleName(name);
    return area;
}

QLineEdit* FormWindow::MakeBox(TextBox& box, int characters) {
    auto* edit = new QLineEdit;
    edit->setMinimumWidth(WidthOf(*edit, characters));
    binder.Bind(box, *edit);
    return edit;
}

QComboBox* FormWindow::MakeList(ComboBox& list) {
    auto* combo = new QComboBox;
    binder.Bind(list, *combo);
    return combo;
}

QPushButton* FormWindow::MakeButton(Button& button) {
    auto* widget = new QPushButton;
    binder.Bind(button, *widget);
    return widget;
}

QWidget* FormWindow::MakeButtonRow(std::initializer_list<Button*> buttons) {
    auto* panel = new QWidget;
    auto* row = LayoutOf<QHBoxLayout>(*panel);
    row->addStretch(1);
    for (Button* button : buttons) row->addWidget(MakeButton(*button));
    return panel;
}

void FormWindow::SetTopic(HelpTopic topic) {
    topic_ = topic;
    ShowProperties();
}

void FormWindow::ResizeWithinScreen(QSize wanted) {
    resize(wanted.boundedTo(screen()->availableSize() * RoomOnScreen));
}

namespace {

// As large as its content, if it may.
class ContentArea : public QScrollArea {
public:
    QSize sizeHint() const override { return widget()->sizeHint(); }
};

}  // namespace

void FormWindow::SetScrolledContent(QWidget& content) {
    auto* area = new ContentArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);  // a click on the ground leaves no box
    area->setWidgetResizable(true);
    area->setWidget(&content);
    setCentralWidget(area);
    QSize wanted = sizeHint();
    if (wanted.width() > screen()->availableSize().width() * RoomOnScreen)
        wanted.rheight() += area->horizontalScrollBar()->sizeHint().height();
    ResizeWithinScreen(wanted);
}

void FormWindow::FocusFirst(const TextBox& box) {
    auto* edit = findChild<QLineEdit*>(ToQt(box.Name()));
    edit->setFocus();
    edit->selectAll();
}

void FormWindow::OnKeys(std::initializer_list<QKeySequence> keys,
                        const std::function<void()>& action) {
    for (const QKeySequence& key : keys) {
        auto* shortcut = new QShortcut(key, this);
        shortcut->setAutoRepeat(false);
        QObject::connect(shortcut, &QShortcut::activated, this, [this, key, action] {
            heldKeys.Hold(key[0].key());
            action();
        });
    }
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || event->isAutoRepeat()) return QMainWindow::keyPressEvent(event);
    event->accept();
    heldKeys.Hold(*event);
    PressEnter();
}

void FormWindow::PressEnter() {
    const QPointer<QWidget> control(focusWidget());
    if (auto* button = qobject_cast<QPushButton*>(control.data())) return button->click();
    const QPointer<QPushButton> pressed(enterButton_);
    if (!pressed) return;
    pressed->setFocus();
    // What is typed while the button works is for the control already.
    if (control) control->setFocus();
    if (auto* edit = qobject_cast<QLineEdit*>(control.data())) edit->selectAll();
    if (pressed) pressed->click();
}

void FormWindow::LeaveBy(QPushButton& button) {
    button.setDefault(true);
    button.setFocus();
    PressByEnter(button);
    OnKeys({Qt::Key_Escape}, [&button] { button.click(); });
}

void FormWindow::AddInput(Label& caption, QWidget& widget, Label* unit, QGridLayout& grid, int row,
                          int column) {
    AddLabel(caption, grid, row, column)->setBuddy(&widget);
    widget.setAccessibleName(ToQt(caption.Caption()));
    grid.addWidget(&widget, row, column + 1);
    if (unit != nullptr) AddLabel(*unit, grid, row, column + 2);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (form_ != nullptr) form_->CloseByFrame();
}

void FormWindow::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    if (onHidden_) onHidden_();
}

}  // namespace vardel
