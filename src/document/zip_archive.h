#pragma once

#include <string>
#include <string_view>
#include <vector>

// An archive made in memory, as office files are. The same parts give the same bytes: no times of day.
class ZipArchive
{
public:
    ZipArchive();
    ~ZipArchive();
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    // A part as a whole; not compressed where a reader looks for its bytes in their place.
    void add(const std::string& name, std::string_view content, bool isCompressed = true);
    // A large part piece by piece: begin, write as often as needed, end.
    void begin(const std::string& name, bool isCompressed = true);
    void write(std::string_view content);
    void end();

    // Closes the archive; nothing may be added behind it. Throws MException where memory ran out.
    std::string bytes();

private:
    std::string bytes_;
    std::size_t position_ = 0;
    void* file_ = nullptr;

    friend struct ZipMemory;
};
