#include "qt/services/QtSettings.h"

#include <QSettings>
#include <QStandardPaths>

#include "qt/services/Convert.h"

namespace vardel {

namespace {

QString FileOf(const std::string& application) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/vardel/" +
           ToQt(application) + ".ini";
}

QString PathOf(const std::string& section, const std::string& key) {
    return ToQt(section) + '/' + ToQt(key);
}

}  // namespace

std::string QtSettings::Read(const std::string& application, const std::string& section,
                             const std::string& key) {
    const QSettings file(FileOf(application), QSettings::IniFormat);
    const QVariant value = file.value(PathOf(section, key));
    // A text with bare commas, as another program may write it, is read as a list.
    const QStringList parts = value.toStringList();
    return FromQt(parts.size() > 1 ? parts.join(", ") : value.toString());
}

void QtSettings::Write(const std::string& application, const std::string& section,
                       const std::string& key, const std::string& text) {
    QSettings file(FileOf(application), QSettings::IniFormat);
    file.setValue(PathOf(section, key), ToQt(text));
    file.sync();
    failed_ |= file.status() != QSettings::NoError;
}

void QtSettings::Delete(const std::string& application, const std::string& section,
                        const std::string& key) {
    QSettings file(FileOf(application), QSettings::IniFormat);
    file.remove(PathOf(section, key));
}

}  // namespace vardel
