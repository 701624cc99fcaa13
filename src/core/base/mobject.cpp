#include "core/base/mobject.h"

MObject::~MObject() = default;
