#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"
#include "persistence/project_codec.h"
#include "platform/utf8.h"

#include <cstdint>
#include <exception>
#include <sstream>
#include <string>
#include <vector>

// All that the opening of a file leaves behind, the project as it stands after a failure too, read and
// written by so many threads.
struct Opening {
    std::vector<std::uint8_t> content;
    std::string report;

    Opening(const std::vector<std::uint8_t>& bytes, const WorkSharing& sharing)
    {
        const auto project = makeReference<DBProject>();
        ReadReport read;
        std::ostringstream text;
        try {
            decodeProject(bytes, *project, read, sharing);
        } catch (const std::exception& failure) {
            text << failure.what() << ' ';
        }
        text << read.position << ' ' << read.section << ' ' << read.failure << ' ' << read.refusalCount << ' '
             << read.dropCount;
        for (const auto& refusal : read.refusals)
            text << " refused " << toUtf8(refusal.key) << ' ' << refusal.begin << ' ' << refusal.end;
        for (const auto& drop : read.drops)
            text << " dropped " << drop.what << ' ' << drop.offset << ' ' << drop.section;
        content = encodeProject(*project, sharing);
        report = text.str();
    }

    bool operator==(const Opening&) const = default;
};
