#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"

#include <random>

// A loam with every common test, a little different each time.
LabSample sampleWithTests(std::mt19937& random);
// Ten thousand samples of five hundred points in so many elements.
Reference<DBProject> siteOfElements(int elements = 40);
