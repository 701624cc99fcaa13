#pragma once

#include "modules/idb_stamp.h"

class DBStamp : public IDBStamp
{
};
