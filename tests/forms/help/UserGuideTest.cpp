#include "forms/help/UserGuide.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vardel {
namespace {

TEST(Guide, AnswersEveryTopicOfTheForms) {
    std::vector<int> topics;
    std::set<std::string> headings;
    for (const GuideSection& section : GuideSections()) {
        topics.insert(topics.end(), section.topics.begin(), section.topics.end());
        EXPECT_TRUE(headings.insert(section.heading).second) << section.heading;
    }
    for (const int topic : {10, 30, 210, 220, 230, 240, 250, 300, 330, 340, 350, 360, 370, 380, 500,
                            510, 520, 530, 540})
        EXPECT_EQ(std::count(topics.begin(), topics.end(), topic), 1) << topic;
    EXPECT_EQ(GuideMarkdown().find("<!--"), std::string::npos);
}

}  // namespace
}  // namespace vardel
