#include "common/typed_text.h"

#include "common/view_settings.h"
#include "core/base/typed_number.h"
#include "platform/code_page.h"

#include <QSettings>

#include <algorithm>
#include <cstdint>
#include <iterator>

QString shownText(std::wstring_view text)
{
    constexpr std::uint32_t firstSurrogate = 0xd800;
    const auto size = static_cast<int>(text.size());
    if (std::any_of(text.begin(), text.end(), [](wchar_t c) {
            return static_cast<std::uint32_t>(c) >= firstSurrogate;
        }))
        return QString::fromWCharArray(text.data(), size);
    QString shown(size, Qt::Uninitialized);
    std::transform(
        text.begin(), text.end(), shown.begin(), [](wchar_t c) { return QChar(static_cast<ushort>(c)); });
    return shown;
}

static const QString decimalCommaKey = QStringLiteral("clipboard/decimalComma");

static bool isNumber(const QString& text)
{
    return readNumber(text.toStdWString()).has_value();
}

// Blanks around a number harm nobody, but for those that only a reader of typed numbers knows.
static bool isReadOtherwise(const QString& text)
{
    const QString inside = text.trimmed();
    const auto isOdd = [](QChar c) { return c == QLatin1Char(',') || c.isSpace(); };
    return std::any_of(inside.begin(), inside.end(), isOdd)
        || std::any_of(text.begin(), text.end(), [](QChar c) { return c.isSpace() && c.unicode() > 0x7f; });
}

QString mendedNumber(const QString& text)
{
    if (!isReadOtherwise(text) || !isNumber(text))
        return text;
    QString mended;
    std::copy_if(text.begin(), text.end(), std::back_inserter(mended), [](QChar c) { return !c.isSpace(); });
    return mended.replace(QLatin1Char(','), QLatin1Char('.'));
}

QString withDecimalComma(const QString& text)
{
    return isNumber(text) ? QString(text).replace(QLatin1Char('.'), QLatin1Char(',')) : text;
}

bool copiesDecimalComma()
{
    return viewSettings()->value(decimalCommaKey, true).toBool();
}

void setCopiesDecimalComma(bool comma)
{
    viewSettings()->setValue(decimalCommaKey, comma);
}

namespace
{

struct Replacement {
    char16_t character;
    const char16_t* text;
};

// What no decomposition gives: Greek letters by their names, signs as they are typed without them.
constexpr Replacement replacements[] = {
    {u'≤', u"<="},
    {u'≥', u">="},
    {u'≠', u"<>"},
    {u'≈', u"~"},
    {u'×', u"х"},
    {u'÷', u"/"},
    {u'−', u"-"},
    {u'⁄', u"/"},
    {u'∙', u"·"},
    {u'⋅', u"·"},
    {u'→', u"->"},
    {u'√', u"корень "},
    {u'∞', u"беск."},
    {u'∅', u"диам. "},
    {u'Ø', u"диам. "},
    {u'ø', u"диам. "},
    {u'′', u"'"},
    {u'″', u"\""},
    {u'α', u"альфа"},
    {u'β', u"бета"},
    {u'γ', u"гамма"},
    {u'δ', u"дельта"},
    {u'Δ', u"дельта "},
    {u'ε', u"эпсилон"},
    {u'η', u"эта"},
    {u'λ', u"лямбда"},
    {u'μ', u"µ"},
    {u'ν', u"ню"},
    {u'π', u"пи"},
    {u'ρ', u"ро"},
    {u'σ', u"сигма"},
    {u'τ', u"тау"},
    {u'φ', u"фи"},
    {u'ϕ', u"фи"},
    {u'ψ', u"пси"},
    {u'ω', u"омега"},
    {u'Ω', u"Ом"},
    {u'Ω', u"Ом"},
};

bool fileHolds(QChar character)
{
    return !character.isSurrogate() && codePageHolds(static_cast<wchar_t>(character.unicode()));
}

bool fileHolds(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return fileHolds(c); });
}

QString heldPart(const QString& text)
{
    QString held;
    std::copy_if(text.begin(), text.end(), std::back_inserter(held), [](QChar c) { return fileHolds(c); });
    return held;
}

QString replacementOf(QChar character)
{
    const auto known = std::find_if(std::begin(replacements),
        std::end(replacements),
        [&](const Replacement& each) { return each.character == character.unicode(); });
    if (known != std::end(replacements))
        return QString::fromUtf16(known->text);
    if (character.isSpace())
        return QStringLiteral(" ");
    if (character.category() == QChar::Punctuation_Dash)
        return QStringLiteral("-");
    // Raised and lowered digits, fractions, letters with marks.
    QString plain;
    for (const QChar part : QString(character).normalized(QString::NormalizationForm_KD))
        plain += part == QChar(u'⁄') ? QChar(u'/') : part;
    return heldPart(plain);
}

} // namespace

QString textForFile(const QString& text)
{
    if (fileHolds(text))
        return text;
    QString plain;
    for (const QChar character : text.normalized(QString::NormalizationForm_C))
        plain += fileHolds(character) ? QString(character) : replacementOf(character);
    return plain;
}

QString lossProblem(const QString& text)
{
    if (fileHolds(text))
        return {};
    QString lost;
    for (int i = 0; i < text.size(); ++i) {
        const int length = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        const QString character = text.mid(i, length);
        if (!fileHolds(character) && !lost.contains(character))
            lost += character;
        i += length - 1;
    }
    const QString proposal = textForFile(text);
    return QStringLiteral("Файл проекта не хранит «%1»: после сохранения здесь будет «?».").arg(lost)
        + (proposal.isEmpty() ? QString()
                              : QStringLiteral(" Можно написать «%1» (правая кнопка — «Заменить»).")
                                    .arg(proposal.size() > 60 ? proposal.left(60) + QChar(u'…') : proposal));
}
