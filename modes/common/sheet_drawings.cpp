#include "common/sheet_drawings.h"

#include "common/lithology_column.h"
#include "common/section_drawing.h"
#include "modules/itellurix_controller.h"
#include "site/by_point.h"
#include "tables/tables.h"

MakeDrawing columnDrawing(ITellurixController* controller)
{
    return [controller](QWidget* parent) {
        auto* column = new LithologyColumn(controller->hatch(), parent);
        return SheetDrawing{column, [column](const std::optional<TableSource>& source) {
                                if (!source) {
                                    column->setColumn({}, {});
                                    return;
                                }
                                const std::wstring point(source->chosen);
                                IDBProject& project = source->project;
                                column->setColumn(drawnLayers(project, point, absoluteMark(project, point)),
                                    drawnWaters(project, point),
                                    drawnSamples(project, point));
                            }};
    };
}

static MakeDrawing sectionDrawing(
    ITellurixController* controller, DrawnSection (*sectionOf)(const TableSource& source))
{
    return [controller, sectionOf](QWidget* parent) {
        auto* drawing = new SectionDrawing(controller->hatch(), parent);
        return SheetDrawing{drawing, [drawing, sectionOf](const std::optional<TableSource>& source) {
                                drawing->setSection(source ? sectionOf(*source) : DrawnSection());
                            }};
    };
}

static DrawnSection sectionNamed(const TableSource& source, const SectionLineMap& lines)
{
    for (const auto& [name, line] : lines) {
        if (name != source.chosen)
            continue;
        std::vector<std::wstring> points;
        for (const SectionRef& point : line)
            points.push_back(point.name);
        return sectionOfLine(source.project, points);
    }
    return {};
}

SheetDrawings sectionDrawings(ITellurixController* controller)
{
    return {{"section/lines",
                sectionDrawing(controller,
                    [](const TableSource& source) {
                        return sectionNamed(source, source.project.getSectionLines());
                    })},
        {"section/terrain",
            sectionDrawing(controller,
                [](const TableSource& source) {
                    return sectionNamed(source, source.project.getTerrainLines());
                })},
        {"section/views", sectionDrawing(controller, [](const TableSource& source) {
             return sectionAlongAxis(source.project, source.chosen == siteViewAlongY);
         })}};
}
