#include <gmock/gmock.h>

#include <QPainter>
#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <vector>

#include "qt/metafile/MetafileDevice.h"

namespace vardel {
namespace {

using testing::Contains;

struct Parsed {
    std::vector<int> header;  // the placeable header's and the file's words
    std::map<int, std::vector<std::vector<int>>> records;  // parameters by function
    std::vector<int> functions;                            // in the order of the file
    std::size_t largest = 0;                               // in words
    std::size_t mostObjects = 0;
};

Parsed Parse(const QByteArray& file) {
    std::vector<int> words;
    for (qsizetype i = 0; i + 1 < file.size(); i += 2)
        words.push_back(static_cast<std::uint8_t>(file[i]) | static_cast<std::uint8_t>(file[i + 1])
                                                                 << 8);
    Parsed parsed;
    parsed.header.assign(words.begin(), words.begin() + 20);
    std::set<int> objects;  // as a player's table
    int saved = 0;
    for (std::size_t at = 20; at < words.size();) {
        const auto size = static_cast<std::size_t>(words.at(at) | words.at(at + 1) << 16);
        if (size < 3 || at + size > words.size()) {
            ADD_FAILURE() << "a record of " << size << " words at " << at;
            break;
        }
        const auto start = words.begin() + static_cast<std::ptrdiff_t>(at);
        const std::vector<int> parameters(start + 3, start + static_cast<std::ptrdiff_t>(size));
        const int function = words[at + 2];
        parsed.functions.push_back(function);
        parsed.records[function].push_back(parameters);
        parsed.largest = std::max(parsed.largest, size);
        if (function >= 0x2FA && function <= 0x2FC) {
            int index = 0;
            while (!objects.insert(index).second) ++index;
        }
        parsed.mostObjects = std::max(parsed.mostObjects, objects.size());
        EXPECT_TRUE(function != 0x12D || objects.contains(parameters.at(0)));
        EXPECT_TRUE(function != 0x1F0 || objects.erase(parameters.at(0)) == 1);
        saved += function == 0x1E ? 1 : function == 0x127 ? -1 : 0;
        EXPECT_GE(saved, 0);
        at += size;
    }
    EXPECT_TRUE(objects.empty());
    EXPECT_EQ(saved, 0);
    return parsed;
}

QByteArray Drawing() {
    MetafileDevice device({400, 300});
    QPainter painter(&device);
    painter.setPen(QPen(Qt::blue, 2, Qt::DashLine));
    painter.drawLine(20, 20, 140, 20);  // a period of 6 widths: ten dashes
    painter.setClipRect(100, 50, 200, 100);
    painter.setPen(QPen(Qt::red, 1));
    painter.drawPolyline(QPolygonF({{0, 100}, {200, 60}, {1e9, 60}}));
    painter.setClipping(false);
    painter.setPen(Qt::black);
    painter.setBrush(QColor(0, 0, 0, 51));
    painter.drawEllipse(50, 200, 40, 30);
    painter.setFont(QFont("Arial", 12));
    painter.drawText(120, 250, "dB\u00B5V/m, 20 \u00B0C");
    painter.translate(30, 200);
    painter.rotate(-90);
    painter.drawText(0, 0, "Upwards");
    return device.Metafile();
}

TEST(Metafile, HoldsWhatItsHeadersSay) {
    const QByteArray file = Drawing();
    const Parsed parsed = Parse(file);
    const std::vector<int>& h = parsed.header;
    EXPECT_EQ(std::vector<int>(h.begin(), h.begin() + 10),
              (std::vector<int>{0xCDD7, 0x9AC6, 0, 0, 0, 8000, 6000, 1920, 0, 0}));
    int checksum = 0;
    for (std::size_t i = 0; i < 10; ++i) checksum ^= h[i];
    EXPECT_EQ(h[10], checksum);
    EXPECT_EQ(std::vector<int>(h.begin() + 11, h.begin() + 14), (std::vector<int>{1, 9, 0x300}));
    EXPECT_EQ(h[14] | h[15] << 16, file.size() / 2 - 11);
    EXPECT_EQ(h[16], static_cast<int>(parsed.mostObjects));
    EXPECT_EQ(h[17] | h[18] << 16, static_cast<int>(parsed.largest));
    EXPECT_EQ(parsed.functions.back(), 0);
    EXPECT_EQ(parsed.records.at(0).size(), 1U);
}

TEST(Metafile, CutsDashesAndClippedLines) {
    Parsed parsed = Parse(Drawing());
    const auto& lines = parsed.records[0x325];
    ASSERT_EQ(lines.size(), 11U);
    EXPECT_EQ(lines[0], (std::vector<int>{2, 400, 400, 560, 400}));
    EXPECT_EQ(lines[9], (std::vector<int>{2, 2560, 400, 2720, 400}));
    EXPECT_EQ(lines[10], (std::vector<int>{3, 2000, 1600, 4000, 1200, 6000, 1200}));
    EXPECT_EQ(parsed.records[0x416], (std::vector<std::vector<int>>{{3000, 6000, 1000, 2000}}));
    EXPECT_THAT(parsed.records[0x2FC], Contains(std::vector<int>({0, 0xCCCC, 0xCC, 0})));
}

}  // namespace
}  // namespace vardel
