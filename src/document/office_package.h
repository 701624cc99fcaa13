#pragma once

#include "document/zip_archive.h"

#include <string>
#include <vector>

struct Document;

inline constexpr const char* xmlDeclaration = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)";
inline constexpr const char* relationSpace =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

// The list of parts that an office file of the Open XML family begins with, and how its main part is bound to
// the others.
class OfficePackage
{
public:
    // The main part by its name in the archive: "word/document.xml".
    OfficePackage(std::string mainPart, std::string mainType);

    // A part by its name beside the main part; type is a content type, empty for pictures. Answers the name
    // by which the main part calls it.
    std::string addPart(const std::string& name, const std::string& type, const std::string& relation);

    // Adds the lists and the properties of the document to the archive.
    void write(ZipArchive& zip, const Document& document) const;

private:
    struct Part {
        std::string name;
        std::string type;
        std::string relation;
    };
    std::string contentTypes() const;

    std::string mainPart_;
    std::string mainType_;
    std::vector<Part> parts_;
};
