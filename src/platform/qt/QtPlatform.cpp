#include "platform/qt/QtPlatform.h"

#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QStyle>
#include <QStyleFactory>
#include <QWindow>

#include "platform/qt/ChartPlot.h"
#include "platform/qt/Convert.h"
#include "platform/qt/PictureConvert.h"
#include "platform/qt/WindowFactory.h"

namespace vardel {

namespace {

QMessageBox::StandardButtons ButtonsOf(Message::Buttons buttons) {
    switch (buttons) {
        case Message::Buttons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case Message::Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Message::Buttons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

// Closing a box by its frame is its cautious answer.
Answer AnswerOf(int button, Message::Buttons buttons) {
    switch (buttons) {
        case Message::Buttons::OkCancel:
            return button == QMessageBox::Ok ? Answer::Ok : Answer::Cancel;
        case Message::Buttons::YesNo:
            return button == QMessageBox::Yes ? Answer::Yes : Answer::No;
        case Message::Buttons::Ok:
            break;
    }
    return Answer::Ok;
}

// The window that is worked in; worked in again when what came over it has gone. Most window
// managers see to that, but not all.
class ActiveWindow {
public:
    ActiveWindow() = default;
    ActiveWindow(const ActiveWindow&) = delete;
    ActiveWindow& operator=(const ActiveWindow&) = delete;
    ~ActiveWindow() {
        if (window_ && window_->isVisible()) window_->activateWindow();
    }
    QWidget* Get() const { return window_; }

private:
    QPointer<QWidget> window_ = QApplication::activeWindow();
};

QString StateDirectory() {
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    const QString base = QDir::isAbsolutePath(state) ? state : QDir::homePath() + "/.local/state";
    return base + "/vardel";
}

}  // namespace

void SetUpApplication(QApplication& application) {
    QApplication::setApplicationName("Vardel");
    QApplication::setApplicationDisplayName("Vardel");
    QApplication::setDesktopFileName("vardel");
    // Nothing here is the desktop's own look: the forms' colours are told one by one.
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(QApplication::style()->standardPalette());
    // Metric-compatible stand-ins for the fonts that the forms name.
    QFont::insertSubstitution("MS Sans Serif", "Liberation Sans");
    QFont::insertSubstitution("Arial", "Liberation Sans");
    QFont::insertSubstitution("Courier New", "Liberation Mono");
    QFont font("MS Sans Serif");
    font.setPointSizeF(10.0);
    application.setFont(font);
    application.setQuitOnLastWindowClosed(false);
}

QtPlatform::QtPlatform() = default;
QtPlatform::~QtPlatform() = default;

Platform QtPlatform::Services() {
    return {*this,
            settings_,
            help_,
            *this,
            *this,
            *this,
            FromQt(QApplication::applicationName()),
            FromQt(QApplication::applicationDirPath()),
            FromQt(StateDirectory())};
}

FormWindow& QtPlatform::WindowOf(Form& form) {
    auto& window = windows_[&form];
    if (!window) window = MakeWindow(form);
    return *window;
}

void QtPlatform::Show(Form& form) {
    FormWindow& window = WindowOf(form);
    window.show();
    window.activateWindow();
}

void QtPlatform::ShowModal(Form& form, Form* owner) {
    FormWindow& window = WindowOf(form);
    window.setWindowModality(Qt::ApplicationModal);
    const ActiveWindow before;
    QWidget* parent = owner != nullptr ? &WindowOf(*owner) : before.Get();
    window.winId();  // makes the window of the desktop, which can then be told whose it is
    if (parent != nullptr && parent != &window)
        window.windowHandle()->setTransientParent(parent->windowHandle());
    const QPointer<FormWindow> stillThere(&window);
    QEventLoop loop;
    window.SetOnHidden([&loop] { loop.quit(); });
    window.show();
    window.activateWindow();
    loop.exec();
    if (stillThere) stillThere->SetOnHidden({});
}

void QtPlatform::Forget(Form& form) {
    const auto it = windows_.find(&form);
    if (it == windows_.end()) return;
    it->second->Release();
    released_.push_back(std::move(it->second));
    windows_.erase(it);
    QMetaObject::invokeMethod(
        &posts_, [this] { released_.clear(); }, Qt::QueuedConnection);
}

Answer QtPlatform::ShowMessage(const Message& message) {
    const ActiveWindow before;
    QMessageBox box(before.Get());
    box.setText(ToQt(message.text));
    box.setWindowTitle(message.title.empty() ? QApplication::applicationName()
                                             : ToQt(message.title));
    box.setTextFormat(Qt::PlainText);
    box.setStandardButtons(ButtonsOf(message.buttons));
    box.setIcon(message.icon == Message::Icon::Critical   ? QMessageBox::Critical
                : message.buttons == Message::Buttons::Ok ? QMessageBox::Information
                                                          : QMessageBox::Question);
    return AnswerOf(box.exec(), message.buttons);
}

std::optional<SaveChoice> QtPlatform::AskSaveFile(const SaveDialog& request) {
    const QStringList parts = ToQt(request.filters).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) filters << parts[i];

    const ActiveWindow before;
    QFileDialog dialog(before.Get());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);  // the form asks
    dialog.setDirectory(ToQt(request.folder));
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(request.filterIndex - 1));
    // A name without an extension gets that of the filter.
    const auto setSuffix = [&](const QString& filter) {
        dialog.setDefaultSuffix(parts.value(filters.indexOf(filter) * 2 + 1).section('.', 1));
    };
    setSuffix(dialog.selectedNameFilter());
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, setSuffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const auto filter = static_cast<int>(filters.indexOf(dialog.selectedNameFilter()));
    return SaveChoice{FromQt(dialog.selectedFiles().constFirst()), filter + 1};
}

void QtPlatform::Yield() { QApplication::processEvents(); }

void QtPlatform::EndProgram() { QApplication::exit(); }

std::optional<Picture> QtPlatform::GetPicture() {
    const QImage image = QApplication::clipboard()->image();
    if (image.isNull()) return std::nullopt;
    return vardel::PictureOf(image);
}

std::string QtPlatform::GetText() { return FromQt(QApplication::clipboard()->text()); }

void QtPlatform::SetPicture(const Picture& picture) {
    QApplication::clipboard()->setImage(ImageOf(picture));
}

void QtPlatform::Clear() { QApplication::clipboard()->clear(); }

Picture QtPlatform::PictureOf(const Chart& chart) { return vardel::PictureOf(DrawChart(chart)); }

std::string QtPlatform::MetafileOf(const Chart& chart) {
    return ChartAsMetafile(chart).toStdString();
}

CalendarTime QtPlatform::Now() {
    const QDateTime now = QDateTime::currentDateTime();
    return {now.date().year(), now.date().month(), now.date().day(), now.time().hour(),
            now.time().minute()};
}

}  // namespace vardel
