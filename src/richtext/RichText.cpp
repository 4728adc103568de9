#include "richtext/RichText.h"

#include <algorithm>

#include "text/Utf8.h"

namespace vardel {

namespace {

// The text with full line ends, and with a replacement character for each byte that is no UTF-8:
// whoever shows the text counts by its characters.
std::string Cleaned(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    const auto isPlain = [](char c) {
        return c != '\r' && c != '\n' && static_cast<unsigned char>(c) < 0x80;
    };
    for (;;) {
        const auto special = std::find_if_not(text.begin(), text.end(), isPlain);
        const auto plain = static_cast<std::size_t>(special - text.begin());
        result += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) return result;
        if (static_cast<unsigned char>(text.front()) >= 0x80) {
            AppendUtf8(result, TakeUtf8(text));
        } else {
            result += "\r\n";
            text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
        }
    }
}

}  // namespace

std::size_t RichText::StretchEnd(std::size_t index) const {
    return index + 1 < stretches_.size() ? stretches_[index + 1].begin : text_.size();
}

std::string RichText::PlainText() const {
    std::string plain;
    plain.reserve(text_.size());
    std::size_t from = 0;
    for (const PlacedPicture& p : pictures_) {
        plain.append(text_, from, p.position - from);
        from = p.position + PictureMark.size();
    }
    return plain.append(text_, from);
}

RichText RichText::Part(std::size_t begin, std::size_t length) const {
    RichText part;
    const std::size_t end = begin + length;
    const std::string_view text = text_;
    // The stretch that goes on at the beginning is the one before the first that begins behind it.
    std::size_t i = StretchAt(begin + 1);
    for (i = i == 0 ? 0 : i - 1; i < stretches_.size() && stretches_[i].begin < end; ++i) {
        const std::size_t from = std::max(begin, stretches_[i].begin);
        part.Insert(part.Length(), text.substr(from, std::min(end, StretchEnd(i)) - from),
                    stretches_[i].style);
    }
    for (const PlacedPicture& p : pictures_)
        if (p.position >= begin && p.position < end) part.Place(p.position - begin, p.picture);
    return part;
}

std::size_t RichText::StretchAt(std::size_t position) const {
    const auto it = std::lower_bound(
        stretches_.begin(), stretches_.end(), position,
        [](const Stretch& stretch, std::size_t where) { return stretch.begin < where; });
    return static_cast<std::size_t>(it - stretches_.begin());
}

// Makes one stretch of this and the one before it, if they are alike.
void RichText::JoinAround(std::size_t index) {
    if (index == 0 || index >= stretches_.size()) return;
    if (stretches_[index - 1].style == stretches_[index].style)
        stretches_.erase(stretches_.begin() + static_cast<std::ptrdiff_t>(index));
}

void RichText::Erase(std::size_t at, std::size_t length) {
    if (length == 0) return;
    const std::size_t end = at + length;
    text_.erase(at, length);

    std::erase_if(pictures_,
                  [&](const PlacedPicture& p) { return p.position >= at && p.position < end; });
    for (PlacedPicture& p : pictures_)
        if (p.position >= end) p.position -= length;

    // The last stretch that begins inside what goes now begins where it went.
    for (std::size_t i = StretchAt(at); i < stretches_.size(); ++i) {
        std::size_t& begin = stretches_[i].begin;
        begin = begin >= end ? begin - length : at;
    }
    const auto sameBegin = [](const Stretch& a, const Stretch& b) { return a.begin == b.begin; };
    const auto kept = std::unique(stretches_.rbegin(), stretches_.rend(), sameBegin).base();
    stretches_.erase(stretches_.begin(), kept);
    if (!stretches_.empty() && stretches_.back().begin >= text_.size()) stretches_.pop_back();
    JoinAround(StretchAt(at));
}

void RichText::Insert(std::size_t at, std::string_view text, TextStyle style) {
    if (text.empty()) return;
    const bool atEnd = at == text_.size();
    text_.insert(at, text);
    if (atEnd) {
        if (stretches_.empty() || stretches_.back().style != style)
            stretches_.push_back({at, style});
        return;
    }

    for (PlacedPicture& p : pictures_)
        if (p.position >= at) p.position += text.size();
    const std::size_t next = StretchAt(at);
    const bool splits = next == stretches_.size() || stretches_[next].begin != at;
    for (std::size_t i = next; i < stretches_.size(); ++i) stretches_[i].begin += text.size();
    const auto where = stretches_.begin() + static_cast<std::ptrdiff_t>(next);
    if (splits) {
        const TextStyle around = stretches_[next - 1].style;
        if (around == style) return;
        stretches_.insert(where, {{at, style}, {at + text.size(), around}});
    } else {
        stretches_.insert(where, {at, style});
        JoinAround(next + 1);
        JoinAround(next);
    }
}

std::size_t RichText::Replace(std::size_t at, std::size_t length, std::string_view text,
                              TextStyle style) {
    at = std::min(at, text_.size());
    Erase(at, std::min(length, text_.size() - at));
    const std::string full = Cleaned(text);
    Insert(at, full, style);
    return full.size();
}

std::size_t RichText::Replace(std::size_t at, std::size_t length, const RichText& content) {
    at = std::min(at, text_.size());
    Erase(at, std::min(length, text_.size() - at));
    const std::string_view text = content.text_;
    for (std::size_t i = 0; i < content.stretches_.size(); ++i) {
        const auto& [begin, style] = content.stretches_[i];
        Insert(at + begin, text.substr(begin, content.StretchEnd(i) - begin), style);
    }
    for (const PlacedPicture& p : content.pictures_) Place(at + p.position, p.picture);
    return content.Length();
}

void RichText::Place(std::size_t at, std::shared_ptr<const Picture> picture) {
    const auto where =
        std::partition_point(pictures_.begin(), pictures_.end(),
                             [at](const PlacedPicture& p) { return p.position < at; });
    pictures_.insert(where, {at, std::move(picture)});
}

std::size_t RichText::ReplaceByPicture(std::size_t at, std::size_t length, Picture picture,
                                       TextStyle style) {
    at = std::min(at, text_.size());
    Erase(at, std::min(length, text_.size() - at));
    Insert(at, PictureMark, style);
    Place(at, std::make_shared<const Picture>(std::move(picture)));
    return PictureMark.size();
}

bool operator==(const RichText& a, const RichText& b) {
    const auto samePicture = [](const RichText::PlacedPicture& p,
                                const RichText::PlacedPicture& q) {
        return p.position == q.position && *p.picture == *q.picture;
    };
    return a.text_ == b.text_ && a.stretches_ == b.stretches_ &&
           std::equal(a.pictures_.begin(), a.pictures_.end(), b.pictures_.begin(),
                      b.pictures_.end(), samePicture);
}

}  // namespace vardel
