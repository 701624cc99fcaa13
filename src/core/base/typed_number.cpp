#include "core/base/typed_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>

namespace
{

constexpr bool isBlank(wchar_t c)
{
    // Blank, tab, line ends, and the blanks that do not break, the wide and the narrow one.
    return c == L' ' || (c >= L'\t' && c <= L'\r') || c == L'\u00A0' || c == L'\u202F';
}

constexpr bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

std::wstring_view withoutBlanks(std::wstring_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// The characters that count, in the form that std::from_chars takes. So few of them cannot leave the range of
// a double, and more of them mean nothing.
class PlainNumber
{
public:
    // False where the text is no number.
    bool read(std::wstring_view text)
    {
        text = withoutBlanks(text);
        if (!text.empty() && (text.front() == L'-' || text.front() == L'+')) {
            if (text.front() == L'-')
                add('-');
            text.remove_prefix(1);
        }
        for (std::size_t i = 0; i < text.size(); ++i)
            if (!take(text, i))
                return false;
        return digits_ > 0;
    }

    const char* begin() const { return text_.data(); }
    const char* end() const { return text_.data() + size_; }
    int decimals() const { return hasMark_ ? decimals_ : 0; }
    bool hasComma() const { return hasComma_; }
    int digits() const { return digits_; }

private:
    bool add(char c)
    {
        if (size_ == text_.size())
            return false;
        text_[size_++] = c;
        return true;
    }

    bool take(std::wstring_view text, std::size_t i)
    {
        const wchar_t c = text[i];
        if (isDigit(c)) {
            ++digits_;
            decimals_ += hasMark_ ? 1 : 0;
            return add(static_cast<char>(c));
        }
        if ((c == L'.' || c == L',') && !hasMark_) {
            hasMark_ = true;
            hasComma_ = c == L',';
            return add('.');
        }
        // Blanks part thousands: a digit stands on either side.
        return isBlank(c) && i > 0 && (isDigit(text[i - 1]) || isBlank(text[i - 1]))
            && (isDigit(text[i + 1]) || isBlank(text[i + 1]));
    }

    std::array<char, 300> text_; // as far as size_
    std::size_t size_ = 0;
    int digits_ = 0;
    int decimals_ = 0;
    bool hasMark_ = false;
    bool hasComma_ = false;
};

constexpr int mostDecimalDigits = 18; // of 64 bits

constexpr std::array<std::int64_t, mostDecimalDigits + 1> powersOfTen = [] {
    std::array<std::int64_t, mostDecimalDigits + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();

// As a double is nearest to them.
constexpr double tenthPowers[] = {
    1e0, 1e-1, 1e-2, 1e-3, 1e-4, 1e-5, 1e-6, 1e-7, 1e-8, 1e-9, 1e-10, 1e-11, 1e-12};

// Up to 1e18 a double holds them exactly.
double powerOfTen(int exponent)
{
    if (exponent >= 0 && exponent <= mostDecimalDigits)
        return static_cast<double>(powersOfTen[static_cast<std::size_t>(exponent)]);
    if (exponent < 0 && -exponent < static_cast<int>(std::size(tenthPowers)))
        return tenthPowers[-exponent];
    return std::pow(10.0, exponent);
}

// With more decimals; nothing where that does not fit.
std::optional<std::int64_t> scaled(const Decimal& number, int decimals)
{
    const std::int64_t factor = powersOfTen[static_cast<std::size_t>(decimals - number.decimals)];
    if (std::abs(number.digits) > powersOfTen.back() / factor)
        return std::nullopt;
    return number.digits * factor;
}

} // namespace

Number readNumber(std::wstring_view text)
{
    PlainNumber plain;
    double value = 0;
    if (!plain.read(text))
        return std::nullopt;
    // So few digits and the power of ten are exact, and their quotient is the nearest double.
    constexpr int exactDigits = 15;
    if (plain.digits() <= exactDigits) {
        std::int64_t digits = 0;
        for (const char c : plain)
            if (c >= '0' && c <= '9')
                digits = digits * 10 + (c - '0');
        value = static_cast<double>(digits) / powerOfTen(plain.decimals());
        return *plain.begin() == '-' ? -value : value;
    }
    const auto [end, failure] = std::from_chars(plain.begin(), plain.end(), value);
    return failure == std::errc() && end == plain.end() ? Number(value) : std::nullopt;
}

CellNumber readCellNumber(std::wstring_view text)
{
    text = withoutBlanks(text);
    CellNumber cell;
    if (text.size() > 2 && text.front() == L'(' && text.back() == L')') {
        cell.isLeftOut = true;
        text = text.substr(1, text.size() - 2);
    } else if (!text.empty() && text.back() == L'!') {
        cell.isKept = true;
        text.remove_suffix(1);
    }
    cell.value = readNumber(text);
    return cell;
}

std::optional<Decimal> readDecimal(std::wstring_view text)
{
    PlainNumber plain;
    if (!plain.read(text) || plain.digits() > mostDecimalDigits)
        return std::nullopt;
    Decimal number{0, plain.decimals(), plain.hasComma()};
    for (const char c : plain)
        if (c >= '0' && c <= '9')
            number.digits = number.digits * 10 + (c - '0');
    if (*plain.begin() == '-')
        number.digits = -number.digits;
    return number;
}

std::wstring decimalText(const Decimal& number)
{
    std::array<wchar_t, 2 * mostDecimalDigits + 4> text{};
    auto first = text.end();
    std::int64_t left = std::abs(number.digits);
    for (int written = 0; left > 0 || written <= number.decimals; ++written) {
        if (written == number.decimals && written > 0)
            *--first = number.hasComma ? L',' : L'.';
        *--first = static_cast<wchar_t>(L'0' + left % 10);
        left /= 10;
    }
    if (number.digits < 0)
        *--first = L'-';
    return {first, text.end()};
}

std::wstring differenceText(std::wstring_view a, std::wstring_view b)
{
    const std::optional<Decimal> numberA = readDecimal(a);
    const std::optional<Decimal> numberB = readDecimal(b);
    if (!numberA || !numberB)
        return {};
    const int decimals = std::max(numberA->decimals, numberB->decimals);
    const std::optional<std::int64_t> digitsA = scaled(*numberA, decimals);
    const std::optional<std::int64_t> digitsB = scaled(*numberB, decimals);
    if (!digitsA || !digitsB)
        return {};
    return decimalText({*digitsA - *digitsB, decimals, numberA->hasComma || numberB->hasComma});
}

double roundedTo(double value, int decimals)
{
    const double scale = powerOfTen(decimals);
    // 2.675 is stored a little below itself: a billionth part more brings a half back to where it was typed.
    const double near = value * scale * (1 + 1e-9);
    const double rounded = std::round(near) / scale;
    return std::isfinite(near) ? rounded : value;
}

std::wstring numberText(const Number& value, int decimals)
{
    if (!value || !std::isfinite(*value))
        return {};
    double rounded = roundedTo(*value, decimals);
    if (rounded == 0)
        rounded = 0; // without the sign of a small negative
    std::array<char, 400> text;
    const auto [end, failure] =
        std::to_chars(text.data(), text.data() + text.size(), rounded, std::chars_format::fixed, decimals);
    return failure == std::errc() ? std::wstring(text.data(), end) : std::wstring();
}

std::wstring significantText(const Number& value, int digits)
{
    if (!value || !std::isfinite(*value))
        return {};
    if (*value == 0)
        return L"0";
    const int beforeMark = static_cast<int>(std::floor(std::log10(std::abs(*value)))) + 1;
    return numberText(roundedTo(*value, digits - beforeMark), std::max(0, digits - beforeMark));
}
