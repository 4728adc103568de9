#include "qt/services/QtSettings.h"

#include <QStandardPaths>
#include <filesystem>
#include <functional>
#include <system_error>

#include "qt/services/Convert.h"
#include "services/Files.h"
#include "services/settings/IniText.h"

namespace vardel {

namespace {

std::string FileOf(const std::string& application) {
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/vardel/";
    return FromQt(folder) + application + ".ini";
}

// False where the change cannot be made or written, or the file cannot be read.
bool Change(const std::string& path, const std::function<bool(IniText&)>& change) {
    try {
        const std::filesystem::path folder = std::filesystem::path(path).parent_path();
        std::filesystem::create_directories(folder);
        const FolderLock lock(folder.string());
        const auto before = ReadWholeFile(path);
        if (!before && FileExists(path)) return false;
        IniText text(before.value_or(std::string()));
        if (!change(text)) return false;
        if (text.Text() != before.value_or(std::string())) ReplaceFile(path, text.Text());
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

}  // namespace

std::string QtSettings::Read(const std::string& application, const std::string& section,
                             const std::string& key) {
    const IniText file(ReadWholeFile(FileOf(application)).value_or(std::string()));
    return file.Value(section, key).value_or(std::string());
}

void QtSettings::Write(const std::string& application, const std::string& section,
                       const std::string& key, const std::string& text) {
    const auto set = [&](IniText& file) { return file.SetValue(section, key, text); };
    if (Change(FileOf(application), set))
        failed_[application].erase(key);
    else
        failed_[application].insert(key);
}

void QtSettings::Delete(const std::string& application, const std::string& section,
                        const std::string& key) {
    Change(FileOf(application), [&](IniText& file) {
        file.Remove(section, key);
        return true;
    });
}

std::string QtSettings::FailedFile(const std::string& application) const {
    const auto failed = failed_.find(application);
    return failed == failed_.end() || failed->second.empty() ? std::string() : FileOf(application);
}

}  // namespace vardel
