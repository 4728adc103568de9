#include "forms/help/UserGuide.h"

#include <charconv>

namespace vardel {

namespace {

constexpr std::string_view TopicMark = "<!-- topic:";
constexpr std::string_view HeadingMark = "## ";

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

std::vector<int> NumbersIn(std::string_view text) {
    std::vector<int> numbers;
    while (!text.empty()) {
        int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error == std::errc()) {
            numbers.push_back(number);
            text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        } else {
            text.remove_prefix(1);
        }
    }
    return numbers;
}

}  // namespace

std::vector<GuideSection> GuideSections() {
    std::vector<GuideSection> sections;
    std::vector<int> topics;
    for (std::string_view rest = UserGuide; !rest.empty();) {
        const std::string_view line = TakeLine(rest);
        if (line.starts_with(TopicMark)) {
            topics = NumbersIn(line.substr(TopicMark.size()));
        } else if (line.starts_with(HeadingMark)) {
            sections.push_back({std::string(line.substr(HeadingMark.size())), topics});
            topics.clear();
        }
    }
    return sections;
}

std::string GuideMarkdown() {
    std::string markdown;
    for (std::string_view rest = UserGuide; !rest.empty();) {
        const std::string_view line = TakeLine(rest);
        if (!line.starts_with(TopicMark)) markdown.append(line) += '\n';
    }
    return markdown;
}

}  // namespace vardel
