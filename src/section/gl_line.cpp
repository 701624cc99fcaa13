#include "section/gl_line.h"

#include "section/geometry.h"

GLLineDB::GLLineDB(const GLLineData& data, const Uuid& id, const std::wstring& name, const Uuid& linkId)
    : GLObjectDB(id, name, linkId)
    , data_(data)
    , vertical_(isVertical(data.from, data.to))
{
}
