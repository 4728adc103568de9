#include "qt/metafile/MetafileWriter.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace vardel {

namespace {

using Words = std::vector<std::uint16_t>;

// The function numbers of the records; the high byte of most is the number of fixed parameters.
enum Function : std::uint16_t {
    EndOfFile = 0x0000,
    SaveDc = 0x001E,
    SetBkMode = 0x0102,
    SetRop2 = 0x0104,
    SetPolyFillMode = 0x0106,
    RestoreDc = 0x0127,
    SelectObject = 0x012D,
    SetTextAlign = 0x012E,
    DeleteObject = 0x01F0,
    SetTextColor = 0x0209,
    SetWindowOrg = 0x020B,
    SetWindowExt = 0x020C,
    CreatePenIndirect = 0x02FA,
    CreateFontIndirect = 0x02FB,
    CreateBrushIndirect = 0x02FC,
    Polygon = 0x0324,
    Polyline = 0x0325,
    IntersectClipRect = 0x0416,
    PolyPolygon = 0x0538,
    ExtTextOut = 0x0A32,
};

constexpr std::uint16_t Transparent = 1;
constexpr std::uint16_t CopyPen = 13;
constexpr std::uint16_t TopLeft = 0;  // some readers know no other
constexpr std::uint16_t LastSaved = 0xFFFF;
constexpr std::uint16_t NullPen = 5;
constexpr std::uint16_t SolidBrush = 0;
constexpr std::uint16_t NullBrush = 1;
constexpr std::uint32_t PlaceableKey = 0x9AC6CDD7;

constexpr std::size_t HeaderWords = 9;
constexpr std::size_t FaceBytes = 32;
// The count of points is a signed 16-bit number.
constexpr std::size_t MostPoints = 32767;

std::uint16_t Word(int value) {
    return static_cast<std::uint16_t>(std::clamp<int>(
        value, std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()));
}

std::uint16_t Count(std::size_t value) { return static_cast<std::uint16_t>(value); }

void AddLong(Words& words, std::size_t value) {
    words.push_back(static_cast<std::uint16_t>(value & 0xFFFFU));
    words.push_back(static_cast<std::uint16_t>(value >> 16U & 0xFFFFU));
}

void AddColor(Words& words, Color color) {
    AddLong(words, color.red | std::size_t{color.green} << 8U | std::size_t{color.blue} << 16U);
}

void AddPoints(Words& words, const MetafilePoints& points) {
    for (const MetafilePoint& point : points)
        words.insert(words.end(), {Word(point.x), Word(point.y)});
}

// Padded with a zero byte to whole words.
void AddBytes(Words& words, std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(i + 1 < bytes.size() ? bytes[i + 1] : 0);
        words.push_back(static_cast<std::uint16_t>(low | high << 8U));
    }
}

void AddRecord(Words& words, std::uint16_t function, const Words& parameters) {
    AddLong(words, parameters.size() + 3);
    words.push_back(function);
    words.insert(words.end(), parameters.begin(), parameters.end());
}

// Repeated points say nothing; of more than a record holds every so many are left out.
void Thin(MetafilePoints& points) {
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() <= MostPoints) return;
    const std::size_t stride = points.size() / MostPoints + 1;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < points.size(); i += stride) points[kept++] = points[i];
    points.resize(kept);
}

Words FontParameters(const MetafileFont& font) {
    Words words = {Word(-font.em), 0, Word(font.escapement), Word(font.escapement),
                   Word(font.weight)};
    std::string rest(8, '\0');  // underlines, character set, precisions, quality and pitch: default
    rest[0] = font.italic ? 1 : 0;
    rest += font.face.substr(0, FaceBytes - 1);
    rest.resize(8 + FaceBytes);
    AddBytes(words, rest);
    return words;
}

}  // namespace

MetafileWriter::MetafileWriter(int width, int height, int unitsPerInch)
    : width_(width), height_(height), unitsPerInch_(unitsPerInch) {
    Append(SetWindowOrg, {0, 0});
    Append(SetWindowExt, {Word(height), Word(width)});
    Append(SetBkMode, {Transparent});
    Append(SetRop2, {CopyPen});
    Append(SetTextAlign, {TopLeft});
    // From here to the end one saved state is open: a clip can only be widened by restoring it, and
    // when it is restored at the end, no object is in use any more and all can be deleted.
    Append(SaveDc, {});
}

void MetafileWriter::Append(std::uint16_t function, const Words& parameters) {
    AddRecord(records_, function, parameters);
    largestRecord_ = std::max(largestRecord_, parameters.size() + 3);
}

void MetafileWriter::SetClip(const std::optional<MetafileRect>& clip) {
    if (clip == clip_) return;
    if (clip_) {
        Append(RestoreDc, {LastSaved});
        Append(SaveDc, {});
        selected_ = {};
    }
    clip_ = clip;
    if (!clip_) return;
    Append(IntersectClipRect,
           {Word(clip_->bottom), Word(clip_->right), Word(clip_->top), Word(clip_->left)});
}

void MetafileWriter::DrawLine(MetafilePoints points, const MetafilePen& pen) {
    const bool closed = points.size() > 3 && points.front() == points.back();
    Thin(points);
    if (points.size() < 2) return;
    SelectPen(static_cast<std::uint16_t>(static_cast<unsigned>(pen.cap) |
                                         static_cast<unsigned>(pen.join)),
              pen.width, pen.color);
    if (closed) {
        SelectBrush(NullBrush, Black);
        points.pop_back();
    }
    Words words = {Count(points.size())};
    AddPoints(words, points);
    Append(closed ? Polygon : Polyline, words);
}

void MetafileWriter::FillPolygons(std::vector<MetafilePoints> polygons, Color color,
                                  FillRule rule) {
    for (MetafilePoints& polygon : polygons) Thin(polygon);
    std::erase_if(polygons, [](const MetafilePoints& polygon) { return polygon.size() < 3; });
    if (polygons.empty()) return;
    SelectPen(NullPen, 0, Black);
    SelectBrush(SolidBrush, color);
    if (selected_.fillRule != rule) Append(SetPolyFillMode, {static_cast<std::uint16_t>(rule)});
    selected_.fillRule = rule;
    Words words;
    if (polygons.size() > 1) words.push_back(Count(polygons.size()));
    for (const MetafilePoints& polygon : polygons) words.push_back(Count(polygon.size()));
    for (const MetafilePoints& polygon : polygons) AddPoints(words, polygon);
    Append(polygons.size() > 1 ? PolyPolygon : Polygon, words);
}

void MetafileWriter::DrawText(const MetafileText& text, const MetafileFont& font) {
    Select(FontKind, CreateFontIndirect, FontParameters(font));
    if (selected_.textColor != text.color) {
        Words color;
        AddColor(color, text.color);
        Append(SetTextColor, color);
        selected_.textColor = text.color;
    }
    const std::string characters = text.characters.substr(0, MostPoints);
    Words words = {Word(text.topLeft.y), Word(text.topLeft.x), Count(characters.size()), 0};
    AddBytes(words, characters);
    Append(ExtTextOut, words);
}

void MetafileWriter::SelectPen(std::uint16_t style, int width, Color color) {
    Words words = {style, Word(width), 0};
    AddColor(words, color);
    Select(PenKind, CreatePenIndirect, words);
}

void MetafileWriter::SelectBrush(std::uint16_t style, Color color) {
    Words words = {style};
    AddColor(words, color);
    words.push_back(0);
    Select(BrushKind, CreateBrushIndirect, words);
}

// The player gives each new object the lowest free index; none is deleted before the end.
void MetafileWriter::Select(Kind kind, std::uint16_t createFunction, const Words& parameters) {
    const Object object{kind, parameters};
    const auto known = std::find(objects_.begin(), objects_.end(), object);
    const auto index = static_cast<std::size_t>(known - objects_.begin());
    if (known == objects_.end()) {
        objects_.push_back(object);
        Append(createFunction, parameters);
    }
    if (selected_.objects[kind] == index) return;
    Append(SelectObject, {Count(index)});
    selected_.objects[kind] = index;
}

std::string MetafileWriter::File() const {
    Words records = records_;
    AddRecord(records, RestoreDc, {LastSaved});
    for (std::size_t i = 0; i < objects_.size(); ++i) AddRecord(records, DeleteObject, {Count(i)});
    AddRecord(records, EndOfFile, {});

    Words file;
    AddLong(file, PlaceableKey);
    file.insert(file.end(), {0, 0, 0, Word(width_), Word(height_),
                             Count(static_cast<std::size_t>(unitsPerInch_)), 0, 0});
    std::uint16_t checksum = 0;
    for (const std::uint16_t word : file) checksum = static_cast<std::uint16_t>(checksum ^ word);
    file.push_back(checksum);

    file.insert(file.end(), {1, HeaderWords, 0x0300});
    AddLong(file, HeaderWords + records.size());
    file.push_back(Count(objects_.size()));
    AddLong(file, std::max<std::size_t>(largestRecord_, 4));
    file.push_back(0);
    file.insert(file.end(), records.begin(), records.end());

    std::string bytes;
    for (const std::uint16_t word : file) {
        bytes += static_cast<char>(word & 0xFFU);
        bytes += static_cast<char>(word >> 8U);
    }
    return bytes;
}

}  // namespace vardel
