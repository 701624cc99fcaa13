#include "core/base/text_number.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace
{

enum class Outcome { Read, NoNumber, OutOfRange };

// What is left of a text while it is being read.
struct Scanner {
    const wchar_t* at;
    const wchar_t* end;

    Scanner(const wchar_t* begin, const wchar_t* behindLast)
        : at(begin)
        , end(behindLast)
    {
    }

    // The next character, a zero behind the last: a zero fits into no number.
    wchar_t next() const { return at != end ? *at : L'\0'; }
    // 0 to 9, or something above 9 where the next character is no digit.
    unsigned digit() const { return static_cast<unsigned>(next()) - static_cast<unsigned>(L'0'); }
    bool nextIs(wchar_t lowerCaseLetter) const
    {
        return (static_cast<unsigned>(next()) | 0x20U) == static_cast<unsigned>(lowerCaseLetter);
    }

    void skipBlanks()
    {
        while (next() == L' ' || (next() >= L'\t' && next() <= L'\r'))
            ++at;
    }

    // True for a minus.
    bool takeSign()
    {
        const bool negative = next() == L'-';
        if (negative || next() == L'+')
            ++at;
        return negative;
    }

    bool takeWord(std::wstring_view lowerCaseWord)
    {
        Scanner ahead = *this;
        for (const wchar_t letter : lowerCaseWord) {
            if (!ahead.nextIs(letter))
                return false;
            ++ahead.at;
        }
        *this = ahead;
        return true;
    }
};

// Far outside every single, and far enough from the ends of 64 bits for the length of any text to be added.
constexpr std::int64_t exponentLimit = 1'000'000'000'000'000'000;

// The exponent behind its mark ('e' or 'p'), which is part of the number only with a digit behind it.
std::int64_t readExponent(Scanner scanner, wchar_t mark)
{
    if (!scanner.nextIs(mark))
        return 0;
    ++scanner.at;
    const bool negative = scanner.takeSign();
    std::int64_t exponent = 0;
    for (unsigned digit = scanner.digit(); digit <= 9; digit = scanner.digit()) {
        if (exponent < exponentLimit / 10)
            exponent = exponent * 10 + digit;
        ++scanner.at;
    }
    return negative ? -exponent : exponent;
}

Outcome checkRange(float magnitude, bool negative, float& value)
{
    if (magnitude > std::numeric_limits<float>::max() || magnitude < std::numeric_limits<float>::min())
        return Outcome::OutOfRange;
    value = negative ? -magnitude : magnitude;
    return Outcome::Read;
}

unsigned hexDigit(const Scanner& scanner)
{
    if (scanner.digit() <= 9)
        return scanner.digit();
    const unsigned letter = (static_cast<unsigned>(scanner.next()) | 0x20U) - static_cast<unsigned>(L'a');
    return letter < 6 ? letter + 10 : 16;
}

// Behind "0x". Without a digit there the number is the zero in front of the x.
Outcome readHexadecimal(Scanner scanner, bool negative, float& value)
{
    std::uint64_t mantissa = 0;
    std::int64_t exponent = 0;
    bool dropped = false;
    bool behindPoint = false;
    for (;; ++scanner.at) {
        if (scanner.next() == L'.' && !behindPoint) {
            behindPoint = true;
            continue;
        }
        const unsigned digit = hexDigit(scanner);
        if (digit > 15)
            break;
        const bool kept = mantissa >> 60U == 0;
        if (kept)
            mantissa = mantissa << 4U | digit;
        else
            dropped = dropped || digit != 0;
        exponent += (kept ? 0 : 4) - (behindPoint ? 4 : 0);
    }
    if (mantissa == 0) {
        value = negative ? -0.0F : 0.0F;
        return Outcome::Read;
    }
    exponent += readExponent(scanner, L'p');
    // What was dropped stands far below the 24 bits that are kept and only breaks a tie.
    const float rounded = static_cast<float>(mantissa | (dropped ? 1U : 0U));
    constexpr std::int64_t beyond = 1000;
    const int scale = static_cast<int>(exponent > beyond ? beyond : exponent < -beyond ? -beyond : exponent);
    return checkRange(std::ldexp(rounded, scale), negative, value);
}

// Significant digits that can matter: no number halfway between two singles has as many.
constexpr std::size_t significantDigits = 120;

// The digits of a decimal number: those kept, read as an integer, times ten to the power of the scale.
struct Decimal {
    std::array<char, significantDigits + 32> digits{};
    std::size_t kept = 0;
    std::int64_t scale = 0;
    bool anyDigit = false;
    bool dropped = false;

    void add(unsigned digit, bool behindPoint)
    {
        anyDigit = true;
        const bool leadingZero = digit == 0 && kept == 0;
        const bool fits = kept < significantDigits;
        if (fits && !leadingZero)
            digits[kept++] = static_cast<char>('0' + digit);
        else
            dropped = dropped || digit != 0;
        scale += (fits ? 0 : 1) - (behindPoint ? 1 : 0);
    }
};

Decimal readDigits(Scanner& scanner)
{
    Decimal decimal;
    bool behindPoint = false;
    for (;; ++scanner.at) {
        if (scanner.next() == L'.' && !behindPoint)
            behindPoint = true;
        else if (scanner.digit() <= 9)
            decimal.add(scanner.digit(), behindPoint);
        else
            return decimal;
    }
}

Outcome roundDecimal(Decimal& decimal, bool negative, float& value)
{
    constexpr std::int64_t beyond = 100;
    const std::int64_t magnitude = decimal.scale + static_cast<std::int64_t>(decimal.kept);
    if (magnitude > beyond || magnitude < -beyond)
        return Outcome::OutOfRange;
    if (decimal.dropped) {
        decimal.digits[decimal.kept++] = '1';
        --decimal.scale;
    }
    char* const begin = decimal.digits.data();
    char* end = begin + decimal.kept;
    *end++ = 'e';
    end = std::to_chars(end, begin + decimal.digits.size(), decimal.scale).ptr;
    float rounded = 0;
    if (std::from_chars(begin, end, rounded).ec != std::errc{})
        return Outcome::OutOfRange;
    constexpr double smallest = std::numeric_limits<float>::min();
    if (rounded == std::numeric_limits<float>::min()) {
        // Below the normal singles the steps are too coarse to tell what reaches the smallest of them with
        // all its 24 bits from what is only rounded up to it.
        double finer = 0;
        std::from_chars(begin, end, finer);
        if (finer < smallest - smallest * 0x1p-25)
            return Outcome::OutOfRange;
    }
    return checkRange(rounded, negative, value);
}

// Every form of a number, from behind its sign.
Outcome readAnyFloat(Scanner scanner, bool negative, float& value)
{
    if (scanner.takeWord(L"inf")) {
        value = std::numeric_limits<float>::infinity() * (negative ? -1.0F : 1.0F);
        return Outcome::Read;
    }
    if (scanner.takeWord(L"nan")) {
        value = std::copysign(std::numeric_limits<float>::quiet_NaN(), negative ? -1.0F : 1.0F);
        return Outcome::Read;
    }
    if (scanner.next() == L'0' && Scanner(scanner.at + 1, scanner.end).nextIs(L'x'))
        return readHexadecimal(Scanner(scanner.at + 2, scanner.end), negative, value);
    Decimal decimal = readDigits(scanner);
    if (!decimal.anyDigit)
        return Outcome::NoNumber;
    if (decimal.kept == 0) {
        value = negative ? -0.0F : 0.0F;
        return Outcome::Read;
    }
    decimal.scale += readExponent(scanner, L'e');
    return roundDecimal(decimal, negative, value);
}

// Integers up to 15 digits and these powers are exact doubles, so one division of them is correctly rounded.
constexpr std::ptrdiff_t everydayDigits = 15;
constexpr std::array<double, everydayDigits + 1> powersOfTen = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Rounding a second time, from double to single, goes wrong only from halfway between two singles.
bool liesBetweenSingles(double number)
{
    return (std::bit_cast<std::uint64_t>(number) & 0x1FFFFFFFU) == 0x10000000U;
}

inline std::uint64_t takeDigits(Scanner& scanner, std::uint64_t number)
{
    for (; scanner.digit() <= 9; ++scanner.at)
        number = number * 10 + scanner.digit();
    return number;
}

// The everyday short decimal in a few steps, all else in readAnyFloat.
inline Outcome readFloat(std::wstring_view text, float& value)
{
    Scanner scanner(text.data(), text.data() + text.size());
    scanner.skipBlanks();
    const bool negative = scanner.takeSign();
    const Scanner number = scanner;

    std::uint64_t mantissa = takeDigits(scanner, 0);
    std::ptrdiff_t digits = scanner.at - number.at;
    std::ptrdiff_t decimals = 0;
    if (scanner.next() == L'.') {
        const wchar_t* const point = scanner.at++;
        mantissa = takeDigits(scanner, mantissa);
        decimals = scanner.at - point - 1;
        digits += decimals;
    }
    if (digits == 0 || digits > everydayDigits || scanner.nextIs(L'e') || scanner.nextIs(L'x'))
        return readAnyFloat(number, negative, value);
    const double magnitude = static_cast<double>(static_cast<std::int64_t>(mantissa))
        / powersOfTen[static_cast<std::size_t>(decimals)];
    if (liesBetweenSingles(magnitude))
        return readAnyFloat(number, negative, value);
    value = static_cast<float>(negative ? -magnitude : magnitude);
    return Outcome::Read;
}

inline Outcome readInt(std::wstring_view text, int& value)
{
    Scanner scanner(text.data(), text.data() + text.size());
    scanner.skipBlanks();
    const bool negative = scanner.takeSign();
    const wchar_t* const first = scanner.at;
    constexpr std::int64_t largest = std::numeric_limits<int>::max();
    std::int64_t number = 0;
    for (; scanner.digit() <= 9; ++scanner.at) {
        // A number that has grown too large stays so.
        if (number <= largest + 1)
            number = number * 10 + scanner.digit();
    }
    if (scanner.at == first)
        return Outcome::NoNumber;
    if (number > largest + (negative ? 1 : 0))
        return Outcome::OutOfRange;
    value = static_cast<int>(negative ? -number : number);
    return Outcome::Read;
}

[[noreturn]] void failFloat(Outcome outcome)
{
    if (outcome == Outcome::NoNumber)
        throw std::invalid_argument("invalid stof argument");
    throw std::out_of_range("stof argument out of range");
}

[[noreturn]] void failInt(Outcome outcome)
{
    if (outcome == Outcome::NoNumber)
        throw std::invalid_argument("invalid stoi argument");
    throw std::out_of_range("stoi argument out of range");
}

} // namespace

float textToFloat(std::wstring_view text)
{
    float value = 0;
    const Outcome outcome = readFloat(text, value);
    if (outcome != Outcome::Read)
        failFloat(outcome);
    return value;
}

int textToInt(std::wstring_view text)
{
    int value = 0;
    const Outcome outcome = readInt(text, value);
    if (outcome != Outcome::Read)
        failInt(outcome);
    return value;
}

bool tryTextToFloat(std::wstring_view text, float& value)
{
    return readFloat(text, value) == Outcome::Read;
}

bool tryTextToInt(std::wstring_view text, int& value)
{
    return readInt(text, value) == Outcome::Read;
}
