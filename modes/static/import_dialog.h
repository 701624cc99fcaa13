#pragma once

#include "exchange/sounding_file.h"

#include <optional>

class QWidget;

struct ImportedJournal {
    std::wstring point, date;
    std::vector<ImportedReading> readings;
};

// Asks for a file, shows it with what each column is taken for, and gives back the readings that the user
// accepted. Throws MException where the file is none.
std::optional<ImportedJournal> askImport(QWidget* parent);
// The second half by itself: the table as read.
std::optional<ImportedJournal> askColumns(QWidget* parent, const SoundingTable& table);
