#include "document/set_lines.h"

#include "document/office_text.h"
#include "drawing/text_layout.h"

#include <algorithm>
#include <cmath>

namespace
{

// A word with the blanks behind it, possibly in several styles: it is not parted unless it must be.
struct Word {
    std::vector<SetPiece> pieces;
    double width = 0; // without the blanks
    double blanks = 0;
    bool endsLine = false;
};

bool isVowel(wchar_t letter)
{
    return std::wstring_view(L"аеёиоуыэюяіїєАЕЁИОУЫЭЮЯІЇЄ").find(letter) != std::wstring_view::npos;
}

bool isLetter(wchar_t c)
{
    return (c >= L'А' && c <= L'я') || std::wstring_view(L"ёЁіІїЇєЄґҐ").find(c) != std::wstring_view::npos;
}

// Whether a word may be parted before this letter: by syllables, two letters at least on either side.
bool isSyllable(std::wstring_view word, std::size_t at)
{
    if (at < 2 || at + 2 > word.size())
        return false;
    for (std::size_t i = at - 2; i < at + 2; ++i)
        if (!isLetter(word[i]))
            return false;
    std::size_t begin = at;
    while (begin > 0 && isLetter(word[begin - 1]))
        --begin;
    std::size_t end = at;
    while (end < word.size() && isLetter(word[end]))
        ++end;
    constexpr std::size_t longest = 40; // what is longer is no word
    if (end - begin > longest)
        return false;
    const std::wstring_view before = word.substr(begin, at - begin);
    const std::wstring_view behind = word.substr(at, end - at);
    if (std::ranges::none_of(before, isVowel) || std::ranges::none_of(behind, isVowel))
        return false;
    constexpr std::wstring_view neverFirst = L"ьъйЬЪЙ";
    if (neverFirst.find(behind.front()) != std::wstring_view::npos)
        return false;
    // A consonant stays with the vowel behind it, a sign with the consonant before it.
    return isVowel(before.back()) || !isVowel(behind.front())
        || neverFirst.find(before.back()) != std::wstring_view::npos;
}

SetPiece pieceOf(const Run& run, double height, bool isBold)
{
    SetPiece piece;
    piece.font = isBold || run.isBold ? Font::Bold : run.isItalic ? Font::Italic : Font::Plain;
    piece.height = run.position == Run::Normal ? height : height * 0.7;
    piece.rise = run.position == Run::Raised ? height * 0.45
        : run.position == Run::Lowered       ? -height * 0.2
                                             : 0;
    piece.isStruck = run.isStruck;
    return piece;
}

class Words
{
public:
    Words(const Runs& runs, double height, bool isBold)
    {
        for (const Run& run : runs) {
            const SetPiece look = pieceOf(run, height, isBold);
            const std::wstring text = cleanText(run.text);
            std::size_t begin = 0;
            while (begin < text.size()) {
                const std::size_t end = std::min(text.find_first_of(L" \n-", begin), text.size());
                if (end == text.size()) {
                    put(look, text.substr(begin));
                    break;
                }
                if (text[end] == L'\n') {
                    put(look, text.substr(begin, end - begin));
                    close(0, true);
                    begin = end + 1;
                } else if (text[end] == L'-') {
                    put(look, text.substr(begin, end + 1 - begin));
                    close(0, false);
                    begin = end + 1;
                } else {
                    put(look, text.substr(begin, end - begin));
                    const std::size_t next = std::min(text.find_first_not_of(L' ', end), text.size());
                    close(static_cast<double>(next - end) * textWidth(L" ", look.font, look.height), false);
                    begin = next;
                }
            }
        }
        close(0, false);
    }

    std::vector<Word> take() { return std::move(words_); }

private:
    void put(const SetPiece& look, std::wstring text)
    {
        if (text.empty())
            return;
        SetPiece piece = look;
        piece.width = textWidth(text, look.font, look.height);
        piece.text = std::move(text);
        current_.width += piece.width;
        current_.pieces.push_back(std::move(piece));
    }
    void close(double blanks, bool endsLine)
    {
        current_.blanks = blanks;
        current_.endsLine = endsLine;
        if (!current_.pieces.empty() || endsLine || blanks > 0)
            words_.push_back(std::move(current_));
        current_ = {};
    }

    std::vector<Word> words_;
    Word current_;
};

class Setter
{
public:
    explicit Setter(double width)
        : width_(width)
    {
    }

    void add(const Word& word)
    {
        constexpr double hair = 1e-6;
        if (!line_.pieces.empty() && place_ + word.width > width_ + hair)
            turn();
        for (const SetPiece& piece : word.pieces)
            add(piece);
        place_ += word.blanks;
        if (word.endsLine)
            turn();
    }

    std::vector<SetLine> take()
    {
        if (!line_.pieces.empty() || lines_.empty())
            turn();
        return std::move(lines_);
    }

private:
    void add(SetPiece piece)
    {
        constexpr double hair = 1e-6;
        // A word wider than the line: as many letters as go in.
        while (place_ + piece.width > width_ + hair && piece.text.size() > 1) {
            SetPiece part = piece;
            std::size_t low = 1;
            std::size_t high = piece.text.size();
            while (low < high) {
                const std::size_t middle = (low + high + 1) / 2;
                const std::wstring_view begin = std::wstring_view(piece.text).substr(0, middle);
                if (place_ + textWidth(begin, piece.font, piece.height) <= width_)
                    low = middle;
                else
                    high = middle - 1;
            }
            if (low == piece.text.size())
                break;
            part.text.resize(low);
            for (std::size_t at = low; at >= 2; --at) {
                std::wstring begin = piece.text.substr(0, at) + L'-';
                if (!isSyllable(piece.text, at)
                    || place_ + textWidth(begin, piece.font, piece.height) > width_ + hair)
                    continue;
                low = at;
                part.text = std::move(begin);
                break;
            }
            part.width = textWidth(part.text, part.font, part.height);
            place(std::move(part));
            turn();
            piece.text.erase(0, low);
            piece.width = textWidth(piece.text, piece.font, piece.height);
        }
        place(std::move(piece));
    }

    void place(SetPiece piece)
    {
        piece.left = place_;
        place_ += piece.width;
        line_.width = place_;
        // One text for what goes on in the same style, or a table would be a text for each word.
        if (!line_.pieces.empty()) {
            SetPiece& last = line_.pieces.back();
            const bool isSame = last.font == piece.font && last.height == piece.height
                && last.rise == piece.rise && last.isStruck == piece.isStruck;
            const double gap = piece.left - last.left - last.width;
            const double blank = textWidth(L" ", piece.font, piece.height);
            const auto blanks = static_cast<std::size_t>(std::max(0L, std::lround(gap / blank)));
            if (isSame && std::abs(gap - static_cast<double>(blanks) * blank) < 1e-6) {
                last.text.append(blanks, L' ');
                last.text += piece.text;
                last.width = place_ - last.left;
                return;
            }
        }
        line_.pieces.push_back(std::move(piece));
    }

    void turn()
    {
        lines_.push_back(std::move(line_));
        line_ = {};
        place_ = 0;
    }

    double width_;
    double place_ = 0;
    SetLine line_;
    std::vector<SetLine> lines_;
};

} // namespace

std::vector<SetLine> setLines(const Runs& runs, double height, double width, bool isBold)
{
    Setter setter(std::max(1.0, width));
    for (const Word& word : Words(runs, height, isBold).take())
        setter.add(word);
    return setter.take();
}
