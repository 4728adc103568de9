#include "qt/services/QtPlatform.h"

#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QIcon>
#include <QInputDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QPixmapCache>
#include <QPointer>
#include <QStandardPaths>
#include <QStyle>
#include <QStyleFactory>
#include <QWindow>

#include "qt/chart/ChartFiles.h"
#include "qt/chart/ChartPlot.h"
#include "qt/look/Announcement.h"
#include "qt/look/DesktopColors.h"
#include "qt/services/Convert.h"
#include "qt/services/PictureConvert.h"
#include "qt/windows/DialogOver.h"
#include "qt/windows/Windows.h"

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

// Closing a box by its frame, or with the program, presses no button.
Answer AnswerOf(int button, const Message& message) {
    switch (message.buttons) {
        case Message::Buttons::OkCancel:
            return button == QMessageBox::Ok ? Answer::Ok : Answer::Cancel;
        case Message::Buttons::YesNo:
            return button == QMessageBox::Yes  ? Answer::Yes
                   : button == QMessageBox::No ? Answer::No
                                               : message.closed;
        case Message::Buttons::Ok:
            break;
    }
    return Answer::Ok;
}

// An installed program's own folder is not the user's to save to.
QString WorkFolder(const std::string& folder) {
    if (const QFileInfo asked(ToQt(folder)); asked.isWritable()) return asked.filePath();
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo::exists(documents) ? documents : QDir::homePath();
}

// The folder of the last choice, beside the one that the dialog begins in.
void OfferFolder(QFileDialog& dialog, const QString& folder) {
    if (folder.isEmpty() || !QFileInfo::exists(folder)) return;
    const QUrl last = QUrl::fromLocalFile(folder);
    QList<QUrl> places = dialog.sidebarUrls();
    if (!places.contains(last)) dialog.setSidebarUrls(places << last);
    dialog.setHistory({folder});
}

void SetUpFileDialog(QFileDialog& dialog, const FileDialog& request) {
    const QStringList parts = ToQt(request.filters).split('|');
    QStringList filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) filters << parts[i];
    dialog.setDirectory(WorkFolder(request.folder));
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(request.filterIndex - 1));
}

QString StateDirectory() {
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    const QString base = QDir::isAbsolutePath(state) ? state : QDir::homePath() + "/.local/state";
    return base + "/vardel";
}

}  // namespace

void SetUpApplication(QApplication& application) {
    QApplication::setApplicationName("Vardel");
    QApplication::setApplicationVersion(VARDEL_VERSION);
    QApplication::setDesktopFileName("vardel");
    if (const QString icon = QApplication::applicationDirPath() + "/vardel.svg";
        QFile::exists(icon))
        QApplication::setWindowIcon(QIcon(icon));
    // Nothing here is the desktop's own look: the forms' colours are set one by one.
    LearnDesktop();
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    // The style keeps the pictures of its buttons by the palettes of their windows, which no later
    // window has: what a few windows need is enough.
    constexpr int StylePictures = 2048;  // kB
    QPixmapCache::setCacheLimit(StylePictures);
    QApplication::setPalette(ApplicationPalette());
    // Metric-compatible stand-ins for the fonts that the forms name.
    QFont::insertSubstitution("MS Sans Serif", "Liberation Sans");
    QFont::insertSubstitution("Arial", "Liberation Sans");
    QFont::insertSubstitution("Courier New", "Liberation Mono");
    QFont font("MS Sans Serif");
    font.setPointSizeF(ApplicationPoints());
    application.setFont(font);
    application.setQuitOnLastWindowClosed(false);
}

QtPlatform::QtPlatform() {
    rest_.setSingleShot(true);
    QObject::connect(&rest_, &QTimer::timeout, &rest_, [this] { Announce(resting_); });
}

QtPlatform::~QtPlatform() {
    windows_.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

Platform QtPlatform::Services() {
    return {*this,
            settings_,
            help_,
            *this,
            *this,
            printers_,
            *this,
            FromQt(QApplication::applicationName()),
            FromQt(QApplication::applicationVersion()),
            FromQt(QApplication::applicationDirPath()),
            FromQt(StateDirectory()),
            QLocale::system().decimalPoint() == ","};
}

namespace {

// Where a desktop leaves that to the program, it would come up in a corner. Once the user has moved
// it it stays there.
void CenterOver(QWidget& window, const QWidget& over) {
    if (window.testAttribute(Qt::WA_Moved)) return;
    if (!window.testAttribute(Qt::WA_Resized)) window.adjustSize();
    const QRect room = over.screen()->availableGeometry();
    QPoint corner = over.frameGeometry().center() - window.rect().center();
    const QPoint farthest = room.bottomRight() - window.rect().bottomRight();
    corner.setX(std::max(room.left(), std::min(corner.x(), farthest.x())));
    corner.setY(std::max(room.top(), std::min(corner.y(), farthest.y())));
    window.move(corner);
}

}  // namespace

FormWindow& QtPlatform::WindowOf(Form& form) {
    auto& window = windows_[&form];
    if (!window) window.reset(MakeWindow(form).release());
    return *window;
}

void QtPlatform::LetGoOfForms() {
    for (auto& [form, window] : windows_) window->LetGo();
    windows_.clear();
}

// Closed, the window gives the keyboard back to the one that it came up over.
void QtPlatform::Show(Form& form) {
    FormWindow& window = WindowOf(form);
    QPointer<QWidget> before(QApplication::activeWindow());
    if (before && before != &window)
        window.SetOnHidden([before] {
            if (before && before->isVisible()) before->activateWindow();
        });
    window.show();
    window.activateWindow();
}

void QtPlatform::ShowModal(Form& form, Form* owner) {
    FormWindow& window = WindowOf(form);
    const ActiveWindow before(owner != nullptr ? &WindowOf(*owner) : nullptr);
    QWidget* parent = before.Get();
    window.winId();  // makes the window of the desktop, which then takes an owner
    if (parent != nullptr && parent != &window &&
        !window.windowHandle()->isAncestorOf(parent->windowHandle()))
        window.windowHandle()->setTransientParent(parent->windowHandle());
    // All windows that are worked in stand in one chain, which this one blocks; the help does not.
    const bool inChain = window.windowHandle()->transientParent() != nullptr;
    window.setWindowModality(inChain ? Qt::WindowModal : Qt::ApplicationModal);
    const QPointer<FormWindow> stillThere(&window);
    QEventLoop loop;
    window.SetOnHidden([&loop] { loop.quit(); });
    if (parent != nullptr && parent != &window) CenterOver(window, *parent);
    window.show();
    window.activateWindow();
    loop.exec();
    if (!stillThere) return;
    stillThere->SetOnHidden({});
    stillThere->windowHandle()->setTransientParent(nullptr);  // it may be the other way round next
}

// Widgets that wait for their deletion still get events, and look at what they showed.
void QtPlatform::Forget(std::unique_ptr<Form> form) {
    const auto it = windows_.find(form.get());
    if (it == windows_.end()) return;
    FormWindow& window = *it->second;
    window.Release();
    QObject::connect(&window, &QObject::destroyed,
                     [held = std::shared_ptr<Form>(std::move(form))] {});
    windows_.erase(it);
}

Answer QtPlatform::ShowMessage(const Message& message) {
    DialogOver<QMessageBox> box;
    box->setText(ToQt(message.text));
    box->setWindowTitle(message.title.empty() ? QApplication::applicationName()
                                              : ToQt(message.title));
    box->setTextFormat(Qt::PlainText);
    box->setStandardButtons(ButtonsOf(message.buttons));
    box->setIcon(message.icon == Message::Icon::Critical   ? QMessageBox::Critical
                 : message.buttons == Message::Buttons::Ok ? QMessageBox::Information
                                                           : QMessageBox::Question);
    if (message.buttons == Message::Buttons::YesNo)
        box->setEscapeButton(message.closed == Answer::Yes ? QMessageBox::Yes : QMessageBox::No);
    return AnswerOf(box.Exec(), message);
}

QString QtPlatform::LastFolder() {
    return ToQt(settings_.Read(FromQt(QApplication::applicationName()), "Dialogs", "LastFolder"));
}

std::optional<std::string> QtPlatform::AskedOf(DialogOver<QFileDialog>& dialog) {
    if (dialog.Exec() != QDialog::Accepted || dialog->selectedFiles().isEmpty())
        return std::nullopt;
    const QString file = dialog->selectedFiles().constFirst();
    settings_.Write(FromQt(QApplication::applicationName()), "Dialogs", "LastFolder",
                    FromQt(QFileInfo(file).absolutePath()));
    return FromQt(file);
}

std::optional<SaveChoice> QtPlatform::AskSaveFile(const FileDialog& request) {
    DialogOver<QFileDialog> dialog;
    SetUpFileDialog(*dialog, request);
    OfferFolder(*dialog, LastFolder());
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);  // the form asks
    if (!request.name.empty()) dialog->selectFile(ToQt(request.name));
    const QStringList filters = dialog->nameFilters();
    // A name without an extension gets that of the filter, unless that is for all files.
    const auto setSuffix = [&](const QString& filter) {
        const QStringList parts = ToQt(request.filters).split('|');
        const QString suffix = parts.value(filters.indexOf(filter) * 2 + 1).section('.', 1);
        dialog->setDefaultSuffix(suffix == "*" ? QString() : suffix);
    };
    setSuffix(dialog->selectedNameFilter());
    QObject::connect(&*dialog, &QFileDialog::filterSelected, &*dialog, setSuffix);
    const auto file = AskedOf(dialog);
    if (!file) return std::nullopt;
    return SaveChoice{*file, static_cast<int>(filters.indexOf(dialog->selectedNameFilter())) + 1};
}

std::optional<std::string> QtPlatform::AskOpenFile(const FileDialog& request) {
    DialogOver<QFileDialog> dialog;
    SetUpFileDialog(*dialog, request);
    OfferFolder(*dialog, LastFolder());
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setOption(QFileDialog::DontUseNativeDialog);  // which may insist on a file that exists
    return AskedOf(dialog);
}

std::optional<std::string> QtPlatform::AskFolder() {
    DialogOver<QFileDialog> dialog;
    OfferFolder(*dialog, LastFolder());
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    return AskedOf(dialog);
}

std::string QtPlatform::AskText(const TextQuestion& question) {
    DialogOver<QInputDialog> dialog;
    dialog->setWindowTitle(ToQt(question.title));
    dialog->setLabelText(ToQt(question.prompt));
    dialog->setTextValue(ToQt(question.text));
    if (dialog.Exec() != QDialog::Accepted) return {};
    return FromQt(dialog->textValue());
}

void QtPlatform::Yield() { QApplication::processEvents(); }

void QtPlatform::YieldWithoutInput() {
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtPlatform::EndProgram() {
    ending_ = true;
    QApplication::exit();  // quit would ask the windows to close
}

void QtPlatform::Announce(const std::string& text) {
    if (!windows_.empty())
        Announcement::Make(ToQt(text));  // none is left where the display is lost
}

void QtPlatform::AnnounceAtRest(const std::string& text) {
    constexpr int Rest = 1000;  // ms
    resting_ = text;
    rest_.start(Rest);
}

std::optional<Picture> QtPlatform::GetPicture() {
    const QImage image = QApplication::clipboard()->image();
    if (image.isNull()) return std::nullopt;
    return vardel::PictureOf(image);
}

std::string QtPlatform::GetText() { return FromQt(QApplication::clipboard()->text()); }

void QtPlatform::SetPicture(const Picture& picture) {
    QApplication::clipboard()->setImage(ImageOf(picture));
}

void QtPlatform::SetText(const std::string& text, const std::string& csv) {
    auto data = std::make_unique<QMimeData>();
    data->setText(ToQt(text));
    if (!csv.empty()) data->setData("text/csv", QByteArray::fromStdString(csv));
    QApplication::clipboard()->setMimeData(data.release());
}

void QtPlatform::Clear() { QApplication::clipboard()->clear(); }

Picture QtPlatform::PictureOf(const Chart& chart) { return vardel::PictureOf(DrawChart(chart)); }

std::string QtPlatform::MetafileOf(const Chart& chart) {
    return ChartAsMetafile(chart).toStdString();
}

std::string QtPlatform::FileOf(const Chart& chart, ChartFileKind kind) {
    switch (kind) {
        case ChartFileKind::Png:
            return ChartAsPng(chart).toStdString();
        case ChartFileKind::Svg:
            return ChartAsSvg(chart).toStdString();
        case ChartFileKind::Pdf:
            return ChartAsPdf(chart).toStdString();
    }
    return {};
}

CalendarTime QtPlatform::Now() {
    const QDateTime now = QDateTime::currentDateTime();
    return {now.date().year(), now.date().month(),  now.date().day(),
            now.time().hour(), now.time().minute(), now.time().second()};
}

}  // namespace vardel
