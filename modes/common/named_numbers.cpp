#include "common/named_numbers.h"

void NamedNumbers::add(int number, std::wstring_view name)
{
    numbers_.append(number);
    names_.append(QString::fromWCharArray(name.data(), int(name.size())));
}

QString NamedNumbers::nameOf(int number) const
{
    const int place = numbers_.indexOf(number);
    return place >= 0 ? names_[place] : QString::number(number);
}

bool NamedNumbers::read(const QString& text, std::int32_t& number) const
{
    const int place = names_.indexOf(text);
    if (place >= 0) {
        number = numbers_[place];
        return true;
    }
    bool isNumber = false;
    const int typed = text.trimmed().toInt(&isNumber);
    if (!isNumber || typed < 0 || typed > 255)
        return false;
    number = typed;
    return true;
}
