#include "stratigraphic/strata_document.h"

#include "common/shared_by.h"

std::shared_ptr<StrataDocument> StrataDocument::of(const ITellurixController* controller)
{
    return sharedBy<StrataDocument>(controller);
}

StrataState StrataDocument::stateOf(const StrataColumn& column, const QString& file)
{
    StrataState made{column, {}, file};
    for (int layer = 0; layer < column.layers.size(); ++layer)
        made.ids.append(nextId++);
    return made;
}
