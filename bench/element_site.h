#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"

// Ten thousand samples of five hundred points in forty elements.
Reference<DBProject> siteOfElements();
