#include "qt/look/DesktopColors.h"

#include <QApplication>
#include <QFontDatabase>
#include <QStyle>
#include <algorithm>
#include <initializer_list>

#include "controls/Controls.h"
#include "qt/services/Convert.h"

namespace vardel {

namespace {

constexpr double UsualPoints = 10.0;

bool isDark = false;
double desktopPoints = UsualPoints;

QPalette DarkPalette() {
    const QColor ground(45, 45, 48), field(30, 30, 32), text(232, 232, 232), faded(135, 135, 135);
    QPalette dark(text, QColor(62, 62, 66), QColor(95, 95, 100), QColor(25, 25, 27),
                  QColor(70, 70, 74), text, Qt::white, field, ground);
    dark.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 200));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(110, 180, 240));
    dark.setColor(QPalette::ToolTipBase, QColor(62, 62, 66));
    dark.setColor(QPalette::ToolTipText, text);
    dark.setColor(QPalette::PlaceholderText, faded);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, faded);
    return dark;
}

bool Follows(const Form& form) { return isDark && !form.HasOwnColors(); }

}  // namespace

void LearnDesktop() {
    constexpr int Middle = 128;
    isDark = QGuiApplication::palette().color(QPalette::Window).lightness() < Middle;
    desktopPoints = QFontDatabase::systemFont(QFontDatabase::GeneralFont).pointSizeF();
}

QPalette ApplicationPalette() {
    return isDark ? DarkPalette() : QApplication::style()->standardPalette();
}

double ApplicationPoints() { return std::max(UsualPoints, desktopPoints); }

QColor GroundOf(const Form& form) {
    return Follows(form) ? QApplication::palette().color(QPalette::Window) : ToQt(form.BackColor());
}

QPalette ColorsOf(const Control& control, QPalette colors) {
    if (Follows(control.Owner()) && control.BackColor() == White && control.ForeColor() == Black)
        return QApplication::palette();
    const QColor back = ToQt(control.BackColor());
    const QColor text = ToQt(control.ForeColor());
    const QColor faded((back.red() + text.red()) / 2, (back.green() + text.green()) / 2,
                       (back.blue() + text.blue()) / 2);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        colors.setColor(role, back);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colors.setColor(role, text);
        colors.setColor(QPalette::Disabled, role, faded);
    }
    return colors;
}

}  // namespace vardel
