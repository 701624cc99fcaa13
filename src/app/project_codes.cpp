// The code of a project that is not open, for the register of projects.

#include "app/main_controller.h"
#include "app/project_reading.h"
#include "app/project_writer.h"

std::wstring ProjectLife::codeOf(const std::wstring& path)
{
    std::wstring code;
    try {
        if (const auto project = readProjectFile(path))
            code = project->getProjectCode();
    } catch (...) {
        // The register shows a file that cannot be read without a code.
    }
    resetFacade();
    shell_.updateActions();
    return code;
}

void ProjectLife::setCodeOf(const std::wstring& path, const std::wstring& code)
{
    resetFacade();
    try {
        if (const auto project = readProjectFile(path)) {
            project->setProjectCode(code);
            const std::wstring place = projectPlace(*project, settings());
            // Held while it is written. What another one has open is not touched: the register, which reads
            // the file again, finds the old code and says so.
            const auto lock = ProjectLock::tryTake(place);
            if (lock.state == ProjectLock::State::HeldByOther && !isThisProgram(lock.owner))
                return;
            ProjectWriter(project.get(), &settings()).write();
        }
    } catch (...) {
        // The register reads the file again and shows what is in it.
    }
}
