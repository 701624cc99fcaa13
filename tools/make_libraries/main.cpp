#include "make_libraries/library_sources.h"
#include "platform/files.h"
#include "platform/safe_write.h"
#include "platform/system_text.h"
#include "platform/utf8.h"

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>

static void check(const FileResult& result, const std::wstring& path)
{
    if (!result)
        throw std::runtime_error(toUtf8(path + L": " + result.reason));
}

static void makeLibrary(std::string_view kind, const std::wstring& source, const std::wstring& target)
{
    std::vector<std::uint8_t> content;
    check(readFile(source, content), source);
    const std::string json(content.begin(), content.end());
    if (kind == "hatches")
        content = encodeHatches(readHatchSource(json));
    else if (kind == "presets")
        content = encodePresets(readPresetSource(json));
    else
        throw std::runtime_error("the kind is hatches or presets");
    check(replaceFile(target, content), target);
}

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 4) {
        std::fputs("make_libraries hatches|presets SOURCE.json TARGET.dat\n", stderr);
        return 2;
    }
    try {
        makeLibrary(arguments[1], fromSystemText(arguments[2]), fromSystemText(arguments[3]));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s: %s\n", arguments[2], failure.what());
        return 1;
    }
    return 0;
}
