#include "oracle.h"
#include "persistence/format.h"
#include "persistence/grammar/project.h"
#include "persistence/project_codec.h"
#include "project_oracle.h"
#include "project_rows.h"
#include "tlxtool/json_dump_archive.h"
#include "tlxtool/json_text.h"
#include "tlxtool/project_json.h"
#include "tlxtool/tool_error.h"

#include <string>
#include <string_view>

namespace
{

// As `tlxtool build` makes a project of a text; null where it refuses it, which is always with a sentence.
Reference<DBProject> buildOrRefuse(std::span<const std::uint8_t> text)
{
    try {
        return projectFromJson(parseJson(text));
    } catch (const ToolError& failure) {
        const std::string_view sentence = failure.what();
        // A place and a reason, or the name of a member that comes twice.
        require(sentence.find(": ") != sentence.npos || sentence.find("дважды") != sentence.npos,
            "a sentence that says where");
        return {};
    }
}

std::string dumpText(DBProject& project)
{
    Json root;
    root["format"] = "Tellurix project";
    root["version"] = format::projectHead.version;
    JsonDumpArchive archive(root["project"]);
    projectFields(archive, project);
    return jsonText(root, true);
}

} // namespace

// Any bytes, as the JSON of a project. What builds dumps and builds again to the same, and saves as
// findSaveLosses says.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto project = buildOrRefuse({data, size});
    if (!project)
        return 0;
    const std::string dump = dumpText(*project);
    const auto again = buildOrRefuse({reinterpret_cast<const std::uint8_t*>(dump.data()), dump.size()});
    // Names without an order may be refused when they come in the order in which the register walks.
    require(again || !rowsOf(*project).consistent(), "what was dumped builds");
    const Saved saved = saveAndReopen(*project);
    if (again && rowsOf(*project).consistent()) {
        require(dumpText(*again) == dump, "the same text at the second dump");
        require(encodeProject(*again) == saved.bytes, "the same bytes");
    }
    if (saved.again)
        requireComesBack(*saved.again);
    return 0;
}
