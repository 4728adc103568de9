#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vardel {

// The manual, docs/user-guide.md and then docs/models.md, as Markdown. A comment line before a
// heading of the second level gives the topics of the context help that its section answers. No two
// of these headings are alike.
extern const std::string_view UserGuide;

struct GuideSection {
    std::string heading;
    std::vector<int> topics;
};

// In the order of the guide.
std::vector<GuideSection> GuideSections();

// The guide without those comments.
std::string GuideMarkdown();

}  // namespace vardel
