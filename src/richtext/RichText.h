#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "services/Picture.h"

namespace vardel {

// How a stretch of text looks.
struct TextStyle {
    bool bold = false;
    bool italic = false;
    bool underline = false;

    friend constexpr bool operator==(const TextStyle&, const TextStyle&) = default;
};

// Text in stretches of a style, with pictures. Appending costs the same at any length. Positions
// and lengths count bytes of the UTF-8 text; none may part a character, a line end or a picture's
// mark.
class RichText {
public:
    // What stands in the text in the place of a picture: U+FFFC, the object replacement character.
    static constexpr std::string_view PictureMark = "\xEF\xBF\xBC";

    // From its beginning to the next stretch's, or to the end of the text.
    struct Stretch {
        std::size_t begin = 0;
        TextStyle style;

        friend bool operator==(const Stretch&, const Stretch&) = default;
    };

    struct PlacedPicture {
        std::size_t position = 0;
        std::shared_ptr<const Picture> picture;
    };

    // Lines end with a carriage return and line feed, also where a lone one of them was put in, and
    // U+FFFD stands for each byte that was no UTF-8.
    const std::string& Text() const { return text_; }
    std::size_t Length() const { return text_.size(); }
    // In order; none is empty, and no two neighbours are alike.
    const std::vector<Stretch>& Stretches() const { return stretches_; }
    // Where the stretch of that index ends.
    std::size_t StretchEnd(std::size_t index) const;
    const std::vector<PlacedPicture>& Pictures() const { return pictures_; }

    // The text without its pictures.
    std::string PlainText() const;
    RichText Part(std::size_t begin, std::size_t length) const;

    // Puts the text in place of length bytes from at on, and returns how long it has become there.
    std::size_t Replace(std::size_t at, std::size_t length, std::string_view text, TextStyle style);
    std::size_t Replace(std::size_t at, std::size_t length, const RichText& content);
    std::size_t ReplaceByPicture(std::size_t at, std::size_t length, Picture picture,
                                 TextStyle style);

    friend bool operator==(const RichText& a, const RichText& b);

private:
    void Erase(std::size_t at, std::size_t length);
    void Insert(std::size_t at, std::string_view text, TextStyle style);
    void Place(std::size_t at, std::shared_ptr<const Picture> picture);
    // Index of the first that begins there or later.
    std::size_t StretchAt(std::size_t position) const;
    void JoinAround(std::size_t index);

    std::string text_;
    std::vector<Stretch> stretches_;
    std::vector<PlacedPicture> pictures_;
};

}  // namespace vardel
