#include "persistence/project_factory.h"

#include "persistence/project_codec.h"

void DBFromFilev104Factory::readDB(const std::vector<std::uint8_t>& bytes, DBProject& project)
{
    try {
        ReadReport ownReport;
        decodeProject(bytes, project, report_ ? *report_ : ownReport);
    } catch (const MException& failure) {
        throw MException(failure.message());
    } catch (...) {
        throw MException(L"Critical Error reading the file " + project.getFilePath(), 2);
    }
    path_ = project.getFilePath();
}
