#pragma once

#include "platform/file_result.h"

#include <cstdint>
#include <string>
#include <string_view>

// A small file that several programs change by turns. While one of them has it open nobody else gets it, on
// this computer or over the network, and the system ends the turn of a program that dies. Plain readers are
// not held up; they may see the content of a moment when it is half written.
class ExclusiveFile
{
public:
    enum class IfMissing { Create, Fail };

    // Waits up to two seconds for its turn.
    ExclusiveFile(const std::wstring& path, IfMissing ifMissing);
    ExclusiveFile(const ExclusiveFile&) = delete;
    ExclusiveFile& operator=(const ExclusiveFile&) = delete;
    ~ExclusiveFile();

    // Whether the file is open, and why it is not.
    const FileResult& result() const { return result_; }
    // It was made by this object.
    bool isNew() const { return isNew_; }

    // Empty where nothing can be read.
    std::string read() const;
    // Replaces the content.
    FileResult write(std::string_view content);
    // Takes the file away within the turn, so that nobody else's file can be meant.
    FileResult remove();
    // Ends the turn.
    void close();

private:
    FileResult open(IfMissing ifMissing);

    std::wstring path_;
    std::intptr_t handle_ = -1; // the system's number of the open file
    bool isNew_ = false;
    FileResult result_;
};
