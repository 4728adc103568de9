#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <string>
#include <string_view>

#include "services/Color.h"
#include "services/TextFont.h"

namespace vardel {

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) { return text.toStdString(); }
inline QColor ToQt(Color color) { return {color.red, color.green, color.blue}; }
inline QFont ToQt(const TextFont& text) {
    QFont font(ToQt(text.name));
    font.setPointSizeF(text.points);
    font.setStyleHint(QFont::Monospace);
    return font;
}

}  // namespace vardel
