#pragma once

#include <QMainWindow>
#include <functional>
#include <initializer_list>

#include "controls/Form.h"
#include "forms/help/ContextIDs.h"
#include "qt/binder/Binder.h"
#include "qt/input/HeldKeys.h"

class QGridLayout;
class QPushButton;
class QScrollArea;

namespace vardel {

class WantedBoxes;

constexpr int WindowMargin = 16;  // around the content of a tool's window, in points

void MakeBold(QWidget& widget);
void MakeTitle(QWidget& widget);  // large and bold
// Of so many digits in the widget's font, in points of the screen.
int WidthOf(const QWidget& widget, int characters);

// A layout of the widget's content within the margin. Spacing -1 is the style's.
template <class Layout>
Layout* LayoutOf(QWidget& widget, int margin = 0, int spacing = -1) {
    auto* layout = new Layout(&widget);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(spacing);
    return layout;
}

// What all windows have in common: caption, pointer and menu bar of their form, and a frame whose
// closing the form decides about. Derived classes lay the form's controls out.
class FormWindow : public QMainWindow {
public:
    enum class LabelFont { Plain, Bold };

    explicit FormWindow(Form& form, LabelFont labelFont = LabelFont::Plain);
    ~FormWindow() override;

    // Hides the window and cuts every tie between it and the form.
    void Release();
    // Likewise, but the window stays as it is.
    void LetGo();

    // Called whenever the window has been hidden.
    void SetOnHidden(std::function<void()> onHidden) { onHidden_ = std::move(onHidden); }

protected:
    // The layout of all that the window holds.
    template <class Layout>
    Layout* Content(int margin, int spacing = -1) {
        setCentralWidget(new QWidget);
        return LayoutOf<Layout>(*centralWidget(), margin, spacing);
    }

    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    // Makers of the widgets that forms are laid out of, tied to their controls.
    QLabel* MakeLabel(Label& label);
    QLabel* MakeNote(Label& label);  // goes on in further lines
    QLabel* AddLabel(Label& label, QGridLayout& grid, int row, int column,
                     Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);
    // A caption, the widget that it names, and the unit behind it, from the column on.
    void AddInput(Label& caption, QWidget& widget, Label* unit, QGridLayout& grid, int row,
                  int column);
    // What is wanted, with its unit, and below it what turns a received power into a field
    // strength: seven columns and two rows.
    void AddWanted(WantedBoxes& wanted, QGridLayout& grid, int row);
    // In a font of one width, scrolled where there is no room, to be selected and copied.
    QScrollArea* MakeFixedText(Label& label, const QString& name);
    QLineEdit* MakeBox(TextBox& box, int characters);
    QComboBox* MakeList(ComboBox& list);
    QPushButton* MakeButton(Button& button);
    QWidget* MakeButtonRow(std::initializer_list<Button*> buttons);  // at the right

    // Where F1 goes in the window of a form that has no topic of its own.
    void SetTopic(HelpTopic topic);

    // As large as that, where the screen has the room.
    void ResizeWithinScreen(QSize wanted);
    // Fills the window, which shows a part of the content where the screen has no room for all.
    void SetScrolledContent(QWidget& content);

    // Where a user begins: the box has the focus, and typing replaces its text.
    void FocusFirst(const TextBox& box);

    // Anywhere in the window. A key that is held counts once.
    void OnKeys(std::initializer_list<QKeySequence> keys, const std::function<void()>& action);
    // Enter, where no button has the focus: the control that has it is left, which has it checked,
    // and comes back to it, and this button is pressed.
    void PressByEnter(QPushButton& button) { enterButton_ = &button; }
    // A window that only shows something: Enter and Escape are its one button.
    void LeaveBy(QPushButton& button);

    Binder binder;
    HeldKeys heldKeys;

private:
    void ShowProperties();
    void AddMenuBar();
    void PressEnter();

    Form* form_;
    HelpTopic topic_ = HelpTopic::None;
    QPushButton* enterButton_ = nullptr;
    LabelFont labelFont_;
    std::function<void()> onHidden_;
};

}  // namespace vardel
