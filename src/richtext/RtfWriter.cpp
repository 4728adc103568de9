#include <algorithm>
#include <array>
#include <cstdint>

#include "richtext/Rtf.h"
#include "text/Utf8.h"

namespace vardel {

namespace {

// A4 landscape with narrow margins: a line of the log fits at 8 points.
constexpr std::string_view Head =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1"
    "{\\fonttbl{\\f0\\fmodern\\fprq1\\fcharset0 Courier New;}}\r\n"
    "\\paperw16838\\paperh11906\\landscape\\margl500\\margr500\\margt700\\margb700\r\n"
    "\\pard\\plain\\f0\\fs16 ";

constexpr std::array<char, 16> HexDigits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                            '8', '9', 'a', 'b', 'c', 'd', 'e', 'f'};

void AppendHex(std::string& out, unsigned char byte) {
    out += HexDigits[byte >> 4U];
    out += HexDigits[byte & 0x0FU];
}

// A code unit of UTF-16 is written as a signed number, with a ? for readers that know no Unicode.
// It is escaped because some that do know it would skip a whole word from a bare one on.
void AppendUnicode(std::string& out, char32_t c) {
    const auto unit = [&](char32_t u) {
        out += "\\u" + std::to_string(static_cast<std::int16_t>(u)) + "\\'3f";
    };
    if (c < 0x10000) {
        unit(c);
    } else {
        unit(0xD800 + ((c - 0x10000) >> 10U));
        unit(0xDC00 + ((c - 0x10000) & 0x3FFU));
    }
}

bool IsPlain(char c) { return c >= 0x20 && c < 0x7F && c != '\\' && c != '{' && c != '}'; }

// Takes a character that is not plain off the text.
void AppendSpecial(std::string& out, std::string_view& text) {
    const char c = text.front();
    if (static_cast<unsigned char>(c) >= 0x80) {
        AppendUnicode(out, TakeUtf8(text));
        return;
    }
    text.remove_prefix(1);
    if (c == '\n') {
        out += "\\par\r\n";
    } else if (c == '\t') {
        out += "\\tab ";
    } else if (c == '\\' || c == '{' || c == '}') {
        out += '\\';
        out += c;
    } else if (c != '\r') {
        out += "\\'";
        AppendHex(out, static_cast<unsigned char>(c));
    }
}

void AppendText(std::string& out, std::string_view text) {
    while (!text.empty()) {
        const auto special = std::find_if_not(text.begin(), text.end(), IsPlain);
        const auto plain = static_cast<std::size_t>(special - text.begin());
        out += text.substr(0, plain);
        text.remove_prefix(plain);
        if (!text.empty()) AppendSpecial(out, text);
    }
}

void AppendStyleChange(std::string& out, TextStyle from, TextStyle to) {
    if (from.bold != to.bold) out += to.bold ? "\\b " : "\\b0 ";
    if (from.italic != to.italic) out += to.italic ? "\\i " : "\\i0 ";
    if (from.underline != to.underline) out += to.underline ? "\\ul " : "\\ulnone ";
}

void AppendPicture(std::string& out, const Picture& picture) {
    out += "{\\pict\\pngblip";
    if (picture.widthTwips > 0) out += "\\picwgoal" + std::to_string(picture.widthTwips);
    if (picture.heightTwips > 0) out += "\\pichgoal" + std::to_string(picture.heightTwips);
    constexpr std::size_t BytesInLine = 64;
    for (std::size_t i = 0; i < picture.png.size(); ++i) {
        if (i % BytesInLine == 0) out += "\r\n";
        AppendHex(out, static_cast<unsigned char>(picture.png[i]));
    }
    out += "}";
}

}  // namespace

std::string WriteRtf(const RichText& text) {
    std::string out(Head);
    out.reserve(Head.size() + text.Length() + text.Length() / 8);
    TextStyle style;
    auto picture = text.Pictures().begin();
    const std::string_view all = text.Text();
    for (std::size_t i = 0; i < text.Stretches().size(); ++i) {
        AppendStyleChange(out, style, text.Stretches()[i].style);
        style = text.Stretches()[i].style;
        std::size_t from = text.Stretches()[i].begin;
        const std::size_t end = text.StretchEnd(i);
        for (; picture != text.Pictures().end() && picture->position < end; ++picture) {
            AppendText(out, all.substr(from, picture->position - from));
            AppendPicture(out, *picture->picture);
            from = picture->position + RichText::PictureMark.size();
        }
        AppendText(out, all.substr(from, end - from));
    }
    out += "}\r\n";
    return out;
}

}  // namespace vardel
