#include "common/office_paper.h"

#include "common/logo_drawing.h"
#include "common/mode_screen.h"
#include "dictionaries/report_language.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "persistence/file_stem.h"
#include "platform/files.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>

// Columns ask at every look: the file is read again only when it is another one.
static const std::optional<Drawing>& keptLogo(const QString& file)
{
    static QString keptFile;
    static QDateTime keptTime;
    static std::optional<Drawing> logo;
    const QDateTime time = QFileInfo(file).lastModified();
    if (file != keptFile || time != keptTime) {
        keptFile = file;
        keptTime = time;
        logo = logoDrawing(file);
    }
    return logo;
}

std::wstring openProjectFolder(ITellurixController& controller)
{
    IDBProject* project = controller.project();
    if (!project)
        return {};
    return controller.settings()->projectPath() + L"\\Проекты\\" + fileStem(project->getFilePath());
}

OfficePaper officePaper(ITellurixController& controller)
{
    IDBProject* project = controller.project();
    Office office =
        officeInForce(QCoreApplication::applicationDirPath().toStdWString(), openProjectFolder(controller));
    if (office.date.empty())
        office.date = QDate::currentDate().toString(QStringLiteral("dd.MM.yy")).toStdWString();
    TitleBlockTexts texts =
        titleBlockTexts(office, project, knownLanguage(controller.settings()->reportLanguage()));
    std::optional<Drawing> logo;
    if (!office.logo.empty())
        logo = keptLogo(QString::fromStdWString(systemPath(office.logo)));
    return {std::move(office), std::move(texts), std::move(logo)};
}

ITellurixController* controllerOf(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget())
        if (const auto* screen = dynamic_cast<const ModeScreen*>(widget))
            return screen->controller();
    return nullptr;
}
