#include "calc/remark.h"

const char* remarkKindName(Remark::Kind kind)
{
    switch (kind) {
    case Remark::Impossible:
        return "impossible";
    case Remark::Doubtful:
        return "doubtful";
    case Remark::Missing:
        break;
    }
    return "missing";
}
