#include <cmath>
#include <cstdint>
#include <string>

#include "Check.h"
#include "map/Coordinates.h"
#include "text/NumberText.h"

namespace {

// A coordinate is within its limits, and its own decimal text is read as the same.
template <class Parse>
void CheckAxis(const std::string& text, double limit, Parse parse) {
    const auto degrees = parse(text);
    if (!degrees) return;
    Check(std::fabs(*degrees) <= limit);
    const auto again = parse(vardel::ShortestText(*degrees));
    Check(again && std::fabs(*again - *degrees) <= 1e-12);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    CheckAxis(text, 90.0, vardel::ParseLatitude);
    CheckAxis(text, 180.0, vardel::ParseLongitude);
    return 0;
}
