#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "Check.h"
#include "map/CoverageRings.h"
#include "map/GeodesicCircle.h"
#include "text/NumberText.h"

namespace {

constexpr std::int64_t LastLongitude = 1'800'000'000;
constexpr std::int64_t LastLatitude = 900'000'000;

std::string_view TakeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return line;
}

// Closed, on the map, of no two same positions in a row, and what it encloses to its left.
void CheckRing(const vardel::PolygonRing& ring) {
    Check(ring.size() >= 4 && ring.front() == ring.back());
    long double doubledArea = 0.0L;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        Check(std::abs(ring[i].longitude) <= LastLongitude);
        Check(std::abs(ring[i].latitude) <= LastLatitude);
        if (i == 0) continue;
        const auto& [x0, y0] = ring[i - 1];
        const auto& [x1, y1] = ring[i];
        doubledArea += static_cast<long double>(x0) * static_cast<long double>(y1) -
                       static_cast<long double>(x1) * static_cast<long double>(y0);
    }
    Check(doubledArea > 0.0L);
}

// Brackets meet their own outside of texts, and no control character is in the file but line ends.
void CheckJson(std::string_view json) {
    std::string open;
    bool inText = false;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char c = json[i];
        Check(static_cast<unsigned char>(c) >= 0x20 || (c == '\n' && !inText));
        if (c == '"') inText = !inText;
        if (inText && c == '\\') ++i;
        if (inText) continue;
        if (c == '{' || c == '[') open += c == '{' ? '}' : ']';
        if (c != '}' && c != ']') continue;
        Check(!open.empty() && open.back() == c);
        open.pop_back();
    }
    Check(open.empty() && !inText);
}

// Each element is closed, and every "&" begins what stands for a character.
void CheckXml(std::string_view xml) {
    int depth = 0;
    for (std::size_t at = xml.find("?>"); at < xml.size(); ++at) {
        if (xml[at] == '<') depth += xml[at + 1] == '/' ? -1 : 1;
        if (xml[at] == '&') Check(xml.substr(at, 6).find(';') != xml.npos);
        Check(depth >= 0);
    }
    Check(depth == 0);
}

}  // namespace

// Lines as they are typed: latitude, longitude, radius in km; the rest is the area's name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto latitude = vardel::ParseLatitude(TakeLine(text));
    const auto longitude = vardel::ParseLongitude(TakeLine(text));
    const auto km = vardel::WholeTextNumber(TakeLine(text));
    if (!latitude || !longitude || !km) return 0;
    const vardel::Place station{*latitude, *longitude};
    const vardel::Coverage coverage{station,
                                    {390, 0, 45, 1.5, std::string(text), "Large", 50, 95},
                                    vardel::Goal::FieldStrength(32, 25),
                                    {{vardel::ModelNumber::Itu529, 95, *km}}};
    const auto json = vardel::CoverageGeoJson(coverage);
    Check(json.has_value() == (*km >= vardel::SmallestRing && *km <= vardel::LargestRing));
    if (!json) return 0;
    const auto rings = vardel::GeodesicCircle(station, *km);
    Check(rings.size() == 1 || rings.size() == 2);
    for (const auto& ring : rings) CheckRing(ring);
    CheckJson(*json);
    CheckXml(*vardel::CoverageKml(coverage));
    return 0;
}
