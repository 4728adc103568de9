#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "richtext/RichText.h"

// The report log as a file: rich text format, as Microsoft has published it in the version
// 1.9, as far as a log needs it.

namespace vardel {

// All ASCII: anything else is escaped. Pictures are PNG. Word processors get a landscape page on
// which a log line is not folded.
std::string WriteRtf(const RichText& text);

// Any bytes at all: what is not known is skipped, and a text that breaks off gives what came
// before. Nothing when it does not begin as rich text does. Time and memory grow with the length of
// the text alone.
std::optional<RichText> ReadRtf(std::string_view rtf);

}  // namespace vardel
