#pragma once

#include <array>

#include "controls/HelpTopic.h"
#include "models/Model.h"

namespace vardel {

// Where the help gives a model's formula and its sources.
inline HelpTopic TopicOf(ModelNumber model) {
    constexpr std::array<HelpTopic, 4> Topics = {HelpTopic::Itu529, HelpTopic::Davidson,
                                                 HelpTopic::Cost231, HelpTopic::UsVariant};
    return Topics.at(IndexOf(model));
}

}  // namespace vardel
