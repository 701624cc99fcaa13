#include "stratigraphic/strata_document.h"

#include <map>

std::shared_ptr<StrataDocument> StrataDocument::of(const ITellurixController* controller)
{
    static std::map<const ITellurixController*, std::weak_ptr<StrataDocument>> documents;
    std::weak_ptr<StrataDocument>& known = documents[controller];
    std::shared_ptr<StrataDocument> document = known.lock();
    if (!document)
        known = document = std::make_shared<StrataDocument>();
    return document;
}

StrataState StrataDocument::stateOf(const StrataColumn& column, const QString& file)
{
    StrataState made{column, {}, file};
    for (int layer = 0; layer < column.layers.size(); ++layer)
        made.ids.append(nextId++);
    return made;
}
