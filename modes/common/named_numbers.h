#pragma once

#include <QStringList>
#include <QVector>

#include <cstdint>
#include <string_view>
#include <utility>

// A dictionary as a column of choices shows it: numbers by their names. A number without a name is shown as
// the number and stays what it is.
class NamedNumbers
{
public:
    void add(int number, std::wstring_view name);

    const QStringList& names() const { return names_; }
    QString nameOf(int number) const;
    // Takes a name, or a number that fits into the byte that the file has for it.
    bool read(const QString& text, std::int32_t& number) const;

private:
    QVector<int> numbers_;
    QStringList names_;
};
