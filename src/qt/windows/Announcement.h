#pragma once

#include <QObject>

namespace vardel {

// Says something to a screen reader at once, which tells what appears elsewhere only to who looks
// for it: the text stands as the description of what has the focus until the focus leaves that.
class Announcement : public QObject {
public:
    static void Make(const QString& text);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit Announcement(QWidget& focus);

    QWidget& focus_;
    QString text_;
    QString before_;  // the widget's own description
};

}  // namespace vardel
