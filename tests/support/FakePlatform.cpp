#include "support/FakePlatform.h"

#include <cstdlib>
#include <stdexcept>
#include <utility>

#include "forms/graphs/chart/Chart.h"

namespace vardel {

ScratchFolder::ScratchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vardel-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string ScratchFolder::Path(const std::string& name) const {
    return name.empty() ? path_.string() : (path_ / name).string();
}

void FakePlatform::ShowModal(Form& form, Form*) {
    shown.push_back(form.Name());
    if (const auto it = whileShown.find(form.Name()); it != whileShown.end()) it->second();
}

Answer FakePlatform::ShowMessage(const Message& message) {
    messages.push_back(message);
    if (onMessage) onMessage(message);
    if (!answers.empty()) {
        const Answer answer = answers.front();
        answers.pop();
        return answer;
    }
    return message.buttons == Message::Buttons::YesNo ? Answer::Yes : Answer::Ok;
}

std::optional<SaveChoice> FakePlatform::AskSaveFile(const FileDialog& dialog) {
    saveDialogs.push_back(dialog);
    return saveChoice;
}

std::optional<std::string> FakePlatform::AskOpenFile(const FileDialog& dialog) {
    openDialogs.push_back(dialog);
    return openChoice;
}

std::string FakePlatform::AskText(const TextQuestion& question) {
    questions.push_back(question);
    return onQuestion ? onQuestion() : std::string();
}

void FakePlatform::Yield() {
    ++yields;
    if (onYield) onYield();
}

void FakePlatform::EndDocument(const std::string& title, const std::string& file) {
    const std::string text = std::exchange(document, {});
    if (printerFails) throw std::runtime_error("out of paper");
    printed.push_back(printer + ' ' + std::to_string(static_cast<int>(Orientation())) + ' ' + file +
                      ": " + title + '\n' + text);
}

void FakePlatform::PrintChart(const Chart& chart, const std::string& file) {
    EndDocument(chart.Name(), file);
}

void FakePlatform::ShowPrinterSetup() { setupsAt.push_back(Orientation()); }

std::vector<std::string> FakePlatform::TakeMessages() {
    std::vector<std::string> texts;
    for (const Message& message : messages) texts.push_back(message.text);
    messages.clear();
    return texts;
}

}  // namespace vardel
