#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "richtext/Rtf.h"
#include "text/Utf8.h"
#include "text/Windows1252.h"

namespace vardel {

namespace {

// Groups nested deeper are read as part of the last one that is remembered.
constexpr std::size_t DeepestGroup = 256;

constexpr int LargestParameter = 1'000'000'000;
constexpr int LargestPictureTwips = 1'000'000;

int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

class Reader {
public:
    explicit Reader(std::string_view rtf) : rest_(rtf) {}

    RichText Read() {
        while (!rest_.empty() && !ended_) {
            const char c = Take();
            if (c == '{')
                OpenGroup();
            else if (c == '}')
                CloseGroup();
            else if (c == '\\')
                ReadControl();
            else if (c != '\r' && c != '\n')
                Character(c);
        }
        if (!ended_) highSurrogate_ = 0;  // its other half is what broke off
        FlushText();
        return std::move(result_);
    }

private:
    enum class Destination { Text, Skipped, Picture };

    struct Group {
        Destination destination = Destination::Text;
        TextStyle style;
        int fallbackLength = 1;  // characters behind a \u for readers that know no Unicode
    };

    struct Control {
        std::string_view word;
        int parameter = 0;
        bool hasParameter = false;
    };

    char Take() {
        const char c = rest_.front();
        rest_.remove_prefix(1);
        return c;
    }

    void OpenGroup() {
        skip_ = 0;
        if (groups_.size() < DeepestGroup)
            groups_.push_back(group_);
        else
            ++tooDeep_;
    }

    void CloseGroup() {
        skip_ = 0;
        if (tooDeep_ > 0) {
            --tooDeep_;
            return;
        }
        const bool endsPicture = group_.destination == Destination::Picture &&
                                 groups_.back().destination != Destination::Picture;
        if (endsPicture) PlacePicture();
        FlushText();
        group_ = groups_.back();
        groups_.pop_back();
        ended_ = groups_.empty();
    }

    void ReadControl() {
        if (rest_.empty()) return;
        if (!IsLetter(rest_.front())) {
            ControlSymbol(Take());
            return;
        }
        Control control;
        const auto wordEnd = std::find_if_not(rest_.begin(), rest_.end(), IsLetter);
        const auto length = static_cast<std::size_t>(wordEnd - rest_.begin());
        control.word = rest_.substr(0, length);
        rest_.remove_prefix(length);
        const bool negative =
            !rest_.empty() && rest_[0] == '-' && (rest_.size() == 1 || IsDigit(rest_[1]));
        if (negative) rest_.remove_prefix(1);
        while (!rest_.empty() && IsDigit(rest_.front())) {
            control.hasParameter = true;
            const int digit = Take() - '0';
            control.parameter = std::min(control.parameter, LargestParameter / 10 - 1) * 10 + digit;
        }
        if (rest_.empty()) return;  // it may be half a word, or lack digits
        if (negative) control.parameter = -control.parameter;
        if (rest_.front() == ' ') rest_.remove_prefix(1);
        ControlWord(control);
    }

    void ControlSymbol(char c) {
        if (c == '\'') {
            if (rest_.size() < 2) {
                rest_ = {};
                return;
            }
            const int high = HexValue(rest_[0]);
            const int low = HexValue(rest_[1]);
            if (high < 0 || low < 0) return;
            rest_.remove_prefix(2);
            AnsiCharacter(static_cast<unsigned char>(high * 16 + low));
        } else if (c == '*') {
            group_.destination = Destination::Skipped;
        } else if (c == '~') {
            TextCharacter(0xA0);
        } else if (c == '_') {
            TextCharacter(0x2011);
        } else if (c == '\r' || c == '\n') {
            LineEnd();
        } else if (c == '\\' || c == '{' || c == '}') {
            TextCharacter(static_cast<char32_t>(c));
        }
    }

    void ControlWord(const Control& control) {
        const std::string_view word = control.word;
        const bool on = !control.hasParameter || control.parameter != 0;
        if (word == "bin") {
            SkipBinary(control.parameter);
            return;
        }
        if (skip_ > 0 && word != "u") {
            --skip_;  // a control word counts as one character of a fallback
            return;
        }
        if (word == "shppict")
            group_.destination = groups_.back().destination;
        else if (word == "b")
            SetStyle(&TextStyle::bold, on);
        else if (word == "i")
            SetStyle(&TextStyle::italic, on);
        else if (word == "ul")
            SetStyle(&TextStyle::underline, on);
        else if (word == "ulnone")
            SetStyle(&TextStyle::underline, false);
        else if (word == "plain")
            SetStyle(TextStyle{});
        else if (word == "par" || word == "line" || word == "sect" || word == "page")
            LineEnd();
        else if (word == "tab")
            TextCharacter(U'\t');
        else if (word == "uc")
            group_.fallbackLength = std::clamp(control.parameter, 0, 1000);
        else if (word == "u")
            UnicodeUnit(control.parameter);
        else if (word == "pict")
            BeginPicture();
        else if (word == "pngblip")
            pictureIsPng_ = true;
        else if (word == "picwgoal")
            picture_.widthTwips = std::clamp(control.parameter, 0, LargestPictureTwips);
        else if (word == "pichgoal")
            picture_.heightTwips = std::clamp(control.parameter, 0, LargestPictureTwips);
        else if (!NamedCharacter(word) && IsSkippedDestination(word))
            group_.destination = Destination::Skipped;
    }

    static bool IsSkippedDestination(std::string_view word) {
        static constexpr std::array<std::string_view, 16> Words = {
            "fonttbl",  "colortbl",   "stylesheet", "info",    "header",  "footer",
            "headerl",  "headerr",    "headerf",    "footerl", "footerr", "footerf",
            "footnote", "nonshppict", "object",     "xe"};
        return std::find(Words.begin(), Words.end(), word) != Words.end();
    }

    bool NamedCharacter(std::string_view word) {
        struct Name {
            std::string_view word;
            char32_t c;
        };
        static constexpr std::array<Name, 8> Names = {{{"lquote", 0x2018},
                                                       {"rquote", 0x2019},
                                                       {"ldblquote", 0x201C},
                                                       {"rdblquote", 0x201D},
                                                       {"bullet", 0x2022},
                                                       {"endash", 0x2013},
                                                       {"emdash", 0x2014},
                                                       {"cell", U'\t'}}};
        const auto it = std::find_if(Names.begin(), Names.end(),
                                     [word](const Name& name) { return name.word == word; });
        if (it == Names.end()) return false;
        TextCharacter(it->c);
        return true;
    }

    void SetStyle(TextStyle style) {
        if (group_.style == style) return;
        FlushText();
        group_.style = style;
    }

    void SetStyle(bool TextStyle::*which, bool on) {
        TextStyle style = group_.style;
        style.*which = on;
        SetStyle(style);
    }

    void Character(char c) {
        if (group_.destination == Destination::Picture) {
            PictureDigit(c);
        } else {
            AnsiCharacter(static_cast<unsigned char>(c));
        }
    }

    void AnsiCharacter(unsigned char byte) { TextCharacter(FromWindows1252(byte)); }

    void UnicodeUnit(int parameter) {
        skip_ = 0;
        if (group_.destination == Destination::Text)
            CodeUnit(static_cast<std::uint16_t>(parameter));
        skip_ = group_.fallbackLength;
    }

    void CodeUnit(char32_t unit) {
        if (unit >= 0xD800 && unit < 0xDC00) {
            DropHighSurrogate();
            highSurrogate_ = unit;
        } else if (unit >= 0xDC00 && unit < 0xE000 && highSurrogate_ != 0) {
            const char32_t high = std::exchange(highSurrogate_, 0);
            TextCharacter(0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00));
        } else {
            TextCharacter(unit);
        }
    }

    void DropHighSurrogate() {
        if (highSurrogate_ == 0) return;
        highSurrogate_ = 0;
        AppendUtf8(text_, ReplacementCharacter);
    }

    void TextCharacter(char32_t c) {
        if (skip_ > 0) {
            --skip_;
            return;
        }
        if (group_.destination != Destination::Text || groups_.empty()) return;
        DropHighSurrogate();
        AppendUtf8(text_, c);
    }

    void LineEnd() {
        TextCharacter(U'\n');  // becomes a full line end in the text
    }

    void FlushText() {
        if (group_.destination == Destination::Text) DropHighSurrogate();
        if (!text_.empty()) result_.Replace(result_.Length(), 0, text_, group_.style);
        text_.clear();
    }

    void BeginPicture() {
        if (group_.destination != Destination::Text) return;
        FlushText();
        group_.destination = Destination::Picture;
        picture_ = {};
        pictureIsPng_ = false;
        highDigit_ = -1;
    }

    void PictureDigit(char c) {
        const int value = HexValue(c);
        if (value < 0) return;
        if (highDigit_ < 0) {
            highDigit_ = value;
            return;
        }
        picture_.png += static_cast<char>(highDigit_ * 16 + value);
        highDigit_ = -1;
    }

    void SkipBinary(int length) {
        const auto size = std::min(static_cast<std::size_t>(std::max(length, 0)), rest_.size());
        if (group_.destination == Destination::Picture) picture_.png += rest_.substr(0, size);
        rest_.remove_prefix(size);
    }

    void PlacePicture() {
        if (pictureIsPng_ && !picture_.png.empty())
            result_.ReplaceByPicture(result_.Length(), 0, std::move(picture_), group_.style);
        picture_ = {};
    }

    std::string_view rest_;
    RichText result_;
    std::string text_;  // of the present style, not yet in the result
    Group group_;
    std::vector<Group> groups_;
    std::size_t tooDeep_ = 0;
    bool ended_ = false;
    int skip_ = 0;
    char32_t highSurrogate_ = 0;
    Picture picture_;
    bool pictureIsPng_ = false;
    int highDigit_ = -1;
};

}  // namespace

std::optional<RichText> ReadRtf(std::string_view rtf) {
    if (rtf.substr(0, 5) != "{\\rtf") return std::nullopt;
    return Reader(rtf).Read();
}

}  // namespace vardel
