#include "listCoords/point_names.h"

#include "core/base/letters.h"
#include "core/base/text_number.h"

#include <algorithm>
#include <optional>

static std::optional<int> numberOfName(const std::wstring& name)
{
    int number = 0;
    return !containsLetter(name) && tryTextToInt(name, number) ? std::optional(number) : std::nullopt;
}

static bool holdsDigit(const std::wstring& name)
{
    return std::any_of(name.begin(), name.end(), [](wchar_t each) { return each >= L'0' && each <= L'9'; });
}

PointNames::PointNames(const PointRegister& points)
{
    for (const auto& [key, rows] : points)
        add(key.pointName);
}

void PointNames::add(const std::wstring& name)
{
    names_.insert(name);
    if (const auto number = numberOfName(name))
        numbers_.emplace(*number, name);
}

void PointNames::remove(const std::wstring& name)
{
    names_.erase(name);
    const auto number = numberOfName(name);
    if (!number)
        return;
    const auto [first, last] = numbers_.equal_range(*number);
    const auto own = std::find_if(first, last, [&](const auto& each) { return each.second == name; });
    if (own != last)
        numbers_.erase(own);
}

QString PointNames::problem(const std::wstring& name, const std::wstring& ownName) const
{
    if (name == ownName && !name.empty())
        return {};
    if (name.empty())
        return QStringLiteral("Введите имя точки: без имени она не запишется.");
    const QString typed = QString::fromStdWString(name);
    if (names_.contains(name))
        return QStringLiteral("Точка «%1» уже есть. Введите другое имя.").arg(typed);
    const auto number = numberOfName(name);
    if (!number && !containsLetter(name))
        return holdsDigit(name)
            ? QStringLiteral("Имя без букв должно начинаться с числа не больше 2147483647. Добавьте букву, "
                             "например «С%1».")
                  .arg(typed)
            : QStringLiteral("В имени нет ни числа, ни буквы. Назовите точку, например, «5» или «С-5».");
    if (number == 0)
        return QStringLiteral("Имя читается как число 0: строки такой точки не отличить от чужих. Добавьте "
                              "букву, например «С%1».")
            .arg(typed);
    if (!number)
        return {};
    const auto [first, last] = numbers_.equal_range(*number);
    const auto other = std::find_if(first, last, [&](const auto& each) { return each.second != ownName; });
    if (other == last)
        return {};
    return QStringLiteral(
        "Имя читается как число %1, так же как имя точки «%2». Добавьте букву, например «С%3».")
        .arg(*number)
        .arg(QString::fromStdWString(other->second), typed);
}

QString pointNameWarning(const std::wstring& name)
{
    const auto number = numberOfName(name);
    if (number == 0)
        return QStringLiteral(
            "Имя читается как число 0: строки такой точки не отличить от чужих. Переименуйте её.");
    if (!number && !containsLetter(name))
        return QStringLiteral("В имени нет ни числа, ни буквы. Переименуйте точку.");
    return {};
}
