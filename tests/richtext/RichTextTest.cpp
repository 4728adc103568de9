#include "richtext/RichText.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <regex>

namespace vardel {
namespace {

// The same text kept byte by byte.
struct Cell {
    char c;
    TextStyle style;
    std::string png;  // of the picture whose mark begins here
};

class Model {
public:
    void Replace(std::size_t at, std::size_t length, const std::string& bytes, TextStyle style,
                 const std::string& png = {}) {
        at = std::min(at, cells.size());
        const auto from = cells.begin() + static_cast<std::ptrdiff_t>(at);
        const auto count = static_cast<std::ptrdiff_t>(std::min(length, cells.size() - at));
        std::vector<Cell> put;
        for (const char c : bytes) put.push_back({c, style, {}});
        if (!png.empty()) put.front().png = png;
        cells.insert(cells.erase(from, from + count), put.begin(), put.end());
    }

    // Where a caret can stand.
    std::vector<std::size_t> Carets() const {
        std::vector<std::size_t> carets;
        for (std::size_t i = 0; i <= cells.size(); ++i) {
            const bool inside =
                i < cells.size() && ((cells[i].c & 0xC0) == 0x80 ||
                                     (i > 0 && cells[i].c == '\n' && cells[i - 1].c == '\r'));
            if (!inside) carets.push_back(i);
        }
        return carets;
    }

    std::vector<Cell> cells;
};

void ExpectSame(const RichText& text, const Model& model) {
    std::string all, plain;
    std::vector<RichText::Stretch> stretches;
    std::vector<std::pair<std::size_t, std::string>> pictures, gotPictures;
    std::size_t markEnd = 0;
    for (std::size_t i = 0; i < model.cells.size(); ++i) {
        const Cell& cell = model.cells[i];
        all += cell.c;
        if (stretches.empty() || stretches.back().style != cell.style)
            stretches.push_back({i, cell.style});
        if (!cell.png.empty()) {
            pictures.emplace_back(i, cell.png);
            markEnd = i + RichText::PictureMark.size();
        }
        if (i >= markEnd) plain += cell.c;
    }
    for (const auto& p : text.Pictures()) gotPictures.emplace_back(p.position, p.picture->png);
    ASSERT_EQ(text.Text(), all);
    ASSERT_EQ(text.PlainText(), plain);
    ASSERT_EQ(gotPictures, pictures);
    ASSERT_TRUE(text.Stretches() == stretches);
    for (std::size_t i = 0; i < stretches.size(); ++i)
        ASSERT_EQ(text.StretchEnd(i),
                  i + 1 < stretches.size() ? stretches[i + 1].begin : all.size());
}

TEST(RichText, EditsAsTheModelDoes) {
    const std::array<std::string, 12> pieces = {
        "a", "Path loss", "\r",     "\n", "\r\n",           "\n\r\r\n",
        "é", "😀",         "\uFFFC", "",   "x\r\ny\rz\n\nw", "\tdB"};
    const std::array<TextStyle, 3> styles = {TextStyle{}, {true, false, false}, {true, true, true}};
    for (unsigned seed = 1; seed <= 25; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](std::size_t n) { return random() % n; };
        RichText text;
        Model model;
        for (int edit = 0; edit < 200; ++edit) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", edit " << edit);
            const std::vector<std::size_t> carets = model.Carets();
            const std::size_t first = below(carets.size());
            const std::size_t last =
                std::min(first + (below(2) == 0 ? 0 : below(12)), carets.size() - 1);
            std::size_t at = carets[first];
            std::size_t length = carets[last] - at;
            if (below(20) == 0) length = std::string::npos;
            if (below(10) == 0) at += text.Length();
            const TextStyle style = styles[below(styles.size())];
            if (below(5) == 0) {
                const std::string png = std::to_string(edit);
                ASSERT_EQ(text.ReplaceByPicture(at, length, {png, 0, 0}, style), 3U);
                model.Replace(at, length, "\uFFFC", style, png);
            } else {
                const std::string& piece = pieces[below(pieces.size())];
                const std::string full =
                    std::regex_replace(piece, std::regex("\r\n|\r|\n"), "\r\n");
                ASSERT_EQ(text.Replace(at, length, piece, style), full.size());
                model.Replace(at, length, full, style);
            }
            ASSERT_NO_FATAL_FAILURE(ExpectSame(text, model));
        }
    }
}

TEST(RichText, BytesThatAreNoUtf8BecomeReplacementCharacters) {
    RichText text;
    EXPECT_EQ(text.Replace(0, 0, "a\xE9\xC3\xA9", {}), 6U);
    EXPECT_EQ(text.Text(), "a\uFFFDé");
}

}  // namespace
}  // namespace vardel
