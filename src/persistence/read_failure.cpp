#include "persistence/read_failure.h"

#include <algorithm>
#include <iterator>

namespace
{

struct ReasonRow {
    std::string_view reason;
    std::string_view text;
};

constexpr ReasonRow reasonRows[] = {
    {"invalid vector<T> subscript", "файл обрывается или испорчен счётчик: за этим местом данных не хватает"},
    {"invalid map<K, T> key", "в тексте геологического элемента пробел или буква не из латиницы"},
    {"invalid stoi argument", "имя без букв не читается как целое число"},
    {"stoi argument out of range", "имя без букв больше любого целого числа"},
    {"invalid stof argument", "глубина или отметка не читается как число"},
    {"stof argument out of range", "глубина или отметка вне пределов числа"},
    {"nesting too deep", "чертёж вложен глубже, чем бывает: файл испорчен"},
};

} // namespace

std::string describeReadFailure(std::string_view reason)
{
    const auto row = std::find_if(std::begin(reasonRows), std::end(reasonRows), [&](const ReasonRow& each) {
        return each.reason == reason;
    });
    return std::string(row == std::end(reasonRows) ? reason : row->text);
}

std::string describeReadFailure(const ReadReport& report)
{
    if (report.failure.empty())
        return {};
    std::string text(report.section);
    text += text.empty() ? "байт " : ", байт ";
    return text + std::to_string(report.position) + ": " + describeReadFailure(report.failure);
}
