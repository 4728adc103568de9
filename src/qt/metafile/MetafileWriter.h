#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "services/Color.h"

namespace vardel {

// Coordinates and lengths are logical units of the metafile, y downwards; what lies beyond 16 bits
// is written as the nearest that fits.
struct MetafilePoint {
    int x = 0;
    int y = 0;

    friend bool operator==(const MetafilePoint&, const MetafilePoint&) = default;
};
using MetafilePoints = std::vector<MetafilePoint>;

struct MetafileRect {
    int left = 0;
    int top = 0;
    int right = 0;   // the first unit outside
    int bottom = 0;  // the first unit outside

    friend bool operator==(const MetafileRect&, const MetafileRect&) = default;
};

// The values are the format's own.
enum class LineCap : std::uint16_t { Round = 0, Square = 0x100, Flat = 0x200 };
enum class LineJoin : std::uint16_t { Round = 0, Bevel = 0x1000, Miter = 0x2000 };
enum class FillRule : std::uint16_t { Alternate = 1, Winding = 2 };

struct MetafilePen {
    Color color;
    int width = 1;
    LineCap cap = LineCap::Flat;
    LineJoin join = LineJoin::Miter;
};

struct MetafileFont {
    std::string face;  // in Windows-1252; cut after 31 characters
    int em = 0;        // without the internal leading
    int weight = 400;  // 1 to 1000
    bool italic = false;
    int escapement = 0;  // tenths of a degree counter-clockwise from the x axis
};

struct MetafileText {
    MetafilePoint topLeft;   // of the first character
    std::string characters;  // in Windows-1252
    Color color;
};

// Records a placeable Windows metafile. The graphics objects that a drawing needs are created at
// their first use and kept for the next.
class MetafileWriter {
public:
    MetafileWriter(int width, int height, int unitsPerInch);

    // Without a clip everything shows.
    void SetClip(const std::optional<MetafileRect>& clip);
    // A line that returns to its start is closed with a join.
    void DrawLine(MetafilePoints points, const MetafilePen& pen);
    void FillPolygons(std::vector<MetafilePoints> polygons, Color color, FillRule rule);
    void DrawText(const MetafileText& text, const MetafileFont& font);

    // The complete file, of what has been drawn until now.
    std::string File() const;

private:
    using Words = std::vector<std::uint16_t>;
    enum Kind : std::uint8_t { PenKind, BrushKind, FontKind, KindCount };
    struct Object {
        Kind kind = PenKind;
        Words parameters;

        friend bool operator==(const Object&, const Object&) = default;
    };
    // What the player has set since its state was last restored.
    struct Selection {
        std::array<std::optional<std::size_t>, KindCount> objects;
        std::optional<Color> textColor;
        std::optional<FillRule> fillRule;
    };

    void Append(std::uint16_t function, const Words& parameters);
    void SelectPen(std::uint16_t style, int width, Color color);
    void SelectBrush(std::uint16_t style, Color color);
    void Select(Kind kind, std::uint16_t createFunction, const Words& parameters);

    int width_;
    int height_;
    int unitsPerInch_;
    Words records_;
    std::size_t largestRecord_ = 0;  // in words
    std::vector<Object> objects_;    // as the player's table
    Selection selected_;
    std::optional<MetafileRect> clip_;
};

}  // namespace vardel
