#include "platform/temporary_name.h"

#include <charconv>

static constexpr std::string_view afterFirst = "tellurix-";
static constexpr std::string_view extension = ".tmp";

std::string temporaryName(char first, std::uint64_t process, int number)
{
    std::string name(1, first);
    name += afterFirst;
    return name + std::to_string(process) + '-' + std::to_string(number) + std::string(extension);
}

std::uint64_t writerOfTemporary(std::string_view name)
{
    if (name.empty() || (name.front() != '.' && name.front() != '~'))
        return 0;
    const std::string_view rest = name.substr(1);
    if (!rest.starts_with(afterFirst))
        return 0;
    std::uint64_t process = 0;
    unsigned number = 0;
    const char* end = rest.data() + rest.size();
    const auto first = std::from_chars(rest.data() + afterFirst.size(), end, process);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != '-')
        return 0;
    const auto second = std::from_chars(first.ptr + 1, end, number);
    const std::string_view last(second.ptr, static_cast<std::size_t>(end - second.ptr));
    return second.ec == std::errc() && last == extension ? process : 0;
}
