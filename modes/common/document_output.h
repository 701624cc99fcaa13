#pragma once

#include "document/document.h"

#include <QString>

class QWidget;

// Asks for place and format (PDF, DOCX, ODT, XLSX, HTML) and writes the document there; tells the user itself
// what went wrong. Gives back the name of the file, empty where the user called it off or nothing was
// written.
QString saveDocument(QWidget* parent, const Document& document);
