#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"
#include "oracle.h"
#include "persistence/read_report.h"
#include "persistence/save_losses.h"

// Opens the bytes as the program does. Null where the head is another's or the file cannot be read, which may
// show only as the program knows it: "Critical Error reading the file ", the path, code 2.
Reference<DBProject> openOrRefuse(const Bytes& bytes, ReadReport& report);

// However many threads read and write it, the same project comes out of the bytes, or the same failure.
void requireThreadsAgree(const Bytes& bytes);

// A project as it is saved, what findSaveLosses says about that, and what an opening brings back; null where
// the file does not open.
struct Saved {
    std::vector<SaveLoss> losses;
    Bytes bytes;
    Reference<DBProject> again;
};

// It opens, and to the last byte, unless findSaveLosses says that it will not.
Saved saveAndReopen(DBProject& project);

// The same for a project that was read from a file: it must come back as it is, to the byte where the names
// of its registers have an order, else as the same rows without those that findSaveLosses names.
void requireComesBack(DBProject& project);
