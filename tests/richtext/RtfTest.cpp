#include "richtext/Rtf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "services/Files.h"
#include "support/FakePlatform.h"
#include "support/Shell.h"

namespace vardel {
namespace {

using testing::HasSubstr;

RichText Read(const std::string& body) {
    const auto text = ReadRtf("{\\rtf1\\ansi " + body + "}");
    EXPECT_TRUE(text.has_value());
    return text.value_or(RichText());
}

std::string Repeat(const std::string& piece, std::size_t count) {
    std::string all;
    all.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i) all += piece;
    return all;
}

RichText RandomDocument(std::mt19937& random) {
    static const std::array<std::string, 14> pieces = {"Path loss ",
                                                       "\\par",
                                                       "{b}\\{",
                                                       "\t",
                                                       "\r\n",
                                                       "\xC3\xA9\xE2\x82\xAC",
                                                       "\xF0\x9F\x98\x80",
                                                       "\xF4\x8F\xBF\xBF",
                                                       "\xEF\xBF\xBC",
                                                       "\xEF\xBF\xBF",
                                                       "\xC2\x80\xC2\x9F",
                                                       "\\'41-7?",
                                                       " 12 ",
                                                       "\r\r\n"};
    RichText text;
    for (std::size_t n = random() % 40; n > 0; --n) {
        const auto bits = random();
        const TextStyle style{(bits & 1U) != 0, (bits & 2U) != 0, (bits & 4U) != 0};
        const auto kind = random() % 8;
        if (kind == 0) {
            Picture picture{std::string(1 + random() % 300, '\0'),
                            static_cast<int>(random() % 32768), static_cast<int>(random() % 300)};
            for (char& c : picture.png) c = static_cast<char>(random());
            text.ReplaceByPicture(text.Length(), 0, picture, style);
        } else if (kind == 1) {
            text.Replace(text.Length(), 0, std::string(1, static_cast<char>(random() % 128)),
                         style);
        } else {
            text.Replace(text.Length(), 0, pieces[random() % pieces.size()], style);
        }
    }
    return text;
}

TEST(Rtf, ReadsBackWhatItWrote) {
    for (unsigned seed = 1; seed <= 500; ++seed) {
        std::mt19937 random(seed);
        const RichText text = RandomDocument(random);
        const std::string rtf = WriteRtf(text);
        for (const char c : rtf)
            ASSERT_TRUE(c == '\r' || c == '\n' || (c >= ' ' && c <= '~')) << "seed " << seed;
        const auto read = ReadRtf(rtf);
        ASSERT_TRUE(read.has_value());
        ASSERT_EQ(read->Text(), text.Text()) << "seed " << seed;
        ASSERT_TRUE(*read == text) << "seed " << seed;
    }
}

TEST(Rtf, ReadsWhatOthersWrite) {
    std::string cp1252 = "\\'A0\\'e9";
    for (const char* high : {"\\'9", "\\'8"})
        for (int low = 15; low >= 0; --low)
            cp1252 = high + std::string(1, "0123456789abcdef"[low]) + cp1252;
    const std::array<std::array<std::string, 2>, 31> cases = {{
        {"{\\fonttbl{\\f0\\fnil Arial;}{\\f1 B;}}{\\colortbl;\\red0;}a", "a"},
        {"{\\*\\generator Gen {deep} \\u233?;}a{\\info{\\title T}}b", "ab"},
        {"a{\\header H\\par}{\\*\\unknown \\'e9\\par\\tab}b", "ab"},
        {cp1252, "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ\u00A0é"},
        {"\x93"
         "a\x94\xE9",
         "“a”é"},
        {"\\'zz\\'", "zz"},
        {"\\uc0\\u233x\\u8364 y", "éx€y"},
        {"\\uc2\\u233abc\\u233\\'e9?d", "écéd"},
        {"{\\uc0\\u233 }\\u232?x{\\u233}y", "éèxéy"},
        {"\\u233\\'e9\\u233\\emdash x\\u233{?}", "ééxé?"},
        {"\\u-10179?\\u-8704?|\\u55357?\\u56832?", "😀|😀"},
        {"\\u-10179?x\\u-8704?\\u-10179?", "\uFFFDx\uFFFD\uFFFD"},
        {"\\u-10179?{\\b x}\\u-10179?\\u-10179?\\u-8704?", "\uFFFDx\uFFFD😀"},
        {"a{\\*\\x \\u-10179?\\u-10179?}b", "ab"},
        {"{\\*\\x\\bin3 }}{}a", "a"},
        {"a\\bin2 }}b\\bin-5 c\\bin0 d", "abcd"},
        {"a\r\nb\n\\par c\\line\r\nd\\\ne\\page f", "ab\r\nc\r\nd\r\ne\r\nf"},
        {"\\lquote a\\rquote\\ldblquote b\\rdblquote\\bullet\\endash\\emdash", "‘a’“b”•–—"},
        {"\\{\\}\\\\\\~\\_\\tab c\\cell", "{}\\\u00A0\u2011\tc\t"},
        {"{\\nonshppict{\\pict\\wmetafile8 0102}}a", "a"},
        {"{\\pict\\jpegblip 0102}a{\\pict\\pngblip}b", "ab"},
        {"a}b", "a"},
        {"\\par-b\\fs20-c\\fs-20 d", "\r\n-b-cd"},
        {"\\parx\\PAR a\\B b", "ab"},
        {"\\u233 \\u233\\u233", "ééé"},
        {"\\uc1\\u65?\\uc99999999999\\u66{C}", "ABC"},
        {"\\uc-7\\u65 \\u99999999999999999999999 ", "A\uC9FF"},
        {"\\fs999999999999999999999999a\\li-999999999999999999999 b", "ab"},
        {"\\" + std::string(100000, 'x') + " a", "a"},
        {"{\\*\\shppict{\\pict{\\*\\blipuid 00ff}\\pngblip 01}}a", "\uFFFCa"},
        {"{\\xe hidden}{\\field{\\*\\fldinst HYPERLINK}{\\fldrslt shown}}", "shown"},
    }};
    for (const auto& [body, expected] : cases)
        EXPECT_EQ(Read(body).Text(), expected) << body.substr(0, 200);
    for (const char* other : {"", "{", "{\\rt", "Vardel", " {\\rtf1 a}", "\\rtf1 a"})
        EXPECT_FALSE(ReadRtf(other).has_value()) << other;
}

TEST(Rtf, ReadsForeignStyles) {
    RichText expected;
    const TextStyle bold{true, false, false}, italic{false, true, false};
    const TextStyle boldUnderlined{true, false, true};
    expected.Replace(0, 0, "a", bold);
    expected.Replace(expected.Length(), 0, "b", boldUnderlined);
    expected.Replace(expected.Length(), 0, "c", bold);
    expected.Replace(expected.Length(), 0, "de", {});
    expected.Replace(expected.Length(), 0, "f", italic);
    EXPECT_TRUE(Read("{\\b1 a{\\ul b}c\\plain d}e{\\*\\x\\b y}\\i99999999999 f") == expected);
}

TEST(Rtf, ReadsForeignPictures) {
    const std::array<std::string, 3> bodies = {
        "{\\*\\shppict{\\pict{\\*\\blipuid 00ff}\\picw9\\picwgoal300\\pichgoal150\\pngblip\r\n01 "
        "7d\r\nF}}",
        "{\\pict\\pngblip\\picwgoal300\\pichgoal150\\bin2 \x01}}",
        "{\\pict\\pngblip\\picwgoal300\\pichgoal150 {01}7D}"};
    for (const std::string& body : bodies) {
        const RichText text = Read("a\\b" + body + "c");
        ASSERT_EQ(text.Pictures().size(), 1U) << body;
        EXPECT_EQ(text.Pictures()[0].position, 1U);
        EXPECT_TRUE(*text.Pictures()[0].picture == (Picture{"\x01}", 300, 150}));
        EXPECT_EQ(text.PlainText(), "ac");
    }
    const RichText text = Read(
        "\\picwgoal9{\\pict\\pngblip 01f}{\\pict\\jpegblip 03}"
        "{\\pict\\pngblip\\picwgoal99999999999\\pichgoal-99999999999 02}");
    ASSERT_EQ(text.Pictures().size(), 2U);
    EXPECT_TRUE(*text.Pictures()[0].picture == (Picture{"\x01", 0, 0}));
    EXPECT_TRUE(*text.Pictures()[1].picture == (Picture{"\x02", 1'000'000, 0}));
}

TEST(Rtf, ATextThatBreaksOffGivesWhatCameBefore) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
        std::mt19937 random(seed);
        const RichText text = RandomDocument(random);
        const std::string rtf = WriteRtf(text);
        const std::size_t end = rtf.rfind('}');
        std::size_t before = 0;
        for (std::size_t cut = 5; cut < end; ++cut) {
            const auto read = ReadRtf(rtf.substr(0, cut));
            ASSERT_TRUE(read.has_value());
            ASSERT_TRUE(text.Text().starts_with(read->Text())) << "seed " << seed << ": " << cut;
            ASSERT_GE(read->Length(), before);
            before = read->Length();
        }
        ASSERT_EQ(ReadRtf(rtf.substr(0, end))->Text(), text.Text());
    }
    EXPECT_EQ(ReadRtf("{\\rtf1 a\\bin2000000000 bcd}")->Text(), "a");
}

TEST(Rtf, ReadsAnyNesting) {
    constexpr std::size_t Depth = 100'000;
    EXPECT_EQ(Read(Repeat("{\\i ", Depth) + "a" + std::string(Depth, '}') + "b").Text(), "ab");
    EXPECT_EQ(Read(Repeat("{\\*\\x ", Depth) + "a" + std::string(Depth, '}') + "b").Text(), "b");
    EXPECT_EQ(ReadRtf("{\\rtf1" + std::string(Depth, '{') + "a")->Text(), "a");
}

TEST(Rtf, AHostileTextCostsNoMoreThanItsLength) {
    const std::array<std::string, 9> pieces = {
        "\x80", "\\b a\\b0 b", "{\\pict\\pngblip 00}", "\\u9",       "{\\ul\x80}",
        "\\\n", "\\u-10179",   "{\\pict\\pngblip",     "{\\b\\u233?"};
    for (const std::string& piece : pieces) {
        const std::string rtf = "{\\rtf1\\uc0" + Repeat(piece, 2'000'000 / piece.size());
        const RichText text = *ReadRtf(rtf);
        EXPECT_LE(text.Length(), 3 * rtf.size()) << piece;
        EXPECT_LE(text.Stretches().size(), rtf.size() / 3) << piece;
        std::size_t pictureBytes = 0;
        for (const auto& p : text.Pictures()) pictureBytes += p.picture->png.size();
        EXPECT_LE(pictureBytes, rtf.size()) << piece;
    }
}

TEST(Rtf, AnotherReaderFindsTextAndStyles) {
    ASSERT_FALSE(Output("command -v unrtf").empty());
    RichText text;
    const auto add = [&](std::string_view piece, TextStyle style = {}) {
        text.Replace(text.Length(), 0, piece, style);
    };
    add("Losses {dB} \\ ");
    add("in bold", {true, false, false});
    add(" then ");
    add("underlined", {false, false, true});
    add(" and ");
    add("slanted", {false, true, false});
    add(" größer\r\nsecond line");
    text.ReplaceByPicture(text.Length(), 0, {"no picture", 300, 200}, {});
    add("end");
    const ScratchFolder folder;
    ReplaceFile(folder.Path("log.rtf"), WriteRtf(text));
    const std::string unrtf = "cd " + folder.Path() + " && unrtf ";
    EXPECT_THAT(
        Output(unrtf + "--text log.rtf"),
        HasSubstr("Losses {dB} \\ in bold then underlined and slanted gr??er\nsecond line"));
    const std::string html = Output(unrtf + "--html log.rtf");
    EXPECT_THAT(html, HasSubstr("\\ <b>in bold</b> then <u>underlined</u> and <i>slanted</i> "
                                "gr&ouml;&szlig;er<br>\nsecond line"));
    EXPECT_LT(html.find("pict001.png"), html.find("end</font>")) << html;
}

}  // namespace
}  // namespace vardel
