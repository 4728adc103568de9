#include "qt/input/FocusRing.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace vardel {

namespace {

class RingStyle : public QProxyStyle {
public:
    RingStyle(QColor color, QObject& owner) : QProxyStyle("fusion"), color_(color) {
        setParent(&owner);
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        if (metric == PM_FocusFrameHMargin || metric == PM_FocusFrameVMargin)
            return FocusRing::Width;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        if (element != CE_FocusFrame)
            return QProxyStyle::drawControl(element, option, painter, widget);
        constexpr int Line = FocusRing::Width / 2;
        const QRegion ring =
            QRegion(option->rect) - option->rect.adjusted(Line, Line, -Line, -Line);
        for (const QRect& side : ring) painter->fillRect(side, color_);
    }

private:
    QColor color_;
};

// What stands out from the window's ground.
QColor RingColor(const QWidget& window) {
    constexpr int Light = 105;
    return qGray(window.palette().color(QPalette::Window).rgb()) < Light ? Qt::white : Qt::black;
}

}  // namespace

FocusRing::FocusRing(QWidget& window) : QFocusFrame(&window) {
    setStyle(new RingStyle(RingColor(window), *this));
    connect(qApp, &QApplication::focusChanged, this, [this, &window](QWidget*, QWidget* control) {
        setWidget(control != nullptr && control->window() == &window ? control : nullptr);
    });
}

}  // namespace vardel
