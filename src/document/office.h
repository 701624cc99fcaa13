#pragma once

#include "platform/file_result.h"

#include <string>
#include <vector>

// The office that makes the documents: what has no place in a project. It stands in a small file beside the
// program, one for a user, and is edited on the page "Документы" of the settings. A project may bring one in
// its own folder (the example does): it holds until the user has his own.
struct Office {
    struct Person {
        std::wstring role; // "Разработал"
        std::wstring name;

        bool operator==(const Person&) const = default;
    };
    // Where the people are named.
    enum Signatures : int {
        InTitleBlock,
        BelowTables, // a line each behind the last block of a document
        InBoth,
        Nowhere,
    };
    std::wstring company;
    std::wstring city; // for title pages
    std::wstring stage; // "П", "Р"
    std::wstring logo; // path of a picture; without a folder: beside the office's file
    std::wstring date; // in title blocks; empty: that of the day
    std::vector<Person> people; // six at most, in the order of the title block
    std::vector<Person> agreed; // two at most, in the field "Согласовано"
    Signatures signatures = InTitleBlock;
    bool hasFrame = true; // sheets of documents have frame and title block

    bool isSignedInTitleBlock() const { return signatures == InTitleBlock || signatures == InBoth; }
    bool operator==(const Office&) const = default;

    bool isSignedBelow() const { return signatures == BelowTables || signatures == InBoth; }
};

// The usual roles, without names.
Office emptyOffice();

// Its file in the program's folder.
std::wstring officePath(const std::wstring& programFolder);
// The office of a file, UTF-8, a line "key=value" each; where there is no such file, or a line of it cannot
// be read, what emptyOffice says.
Office readOffice(const std::wstring& path);
// That of the user; where he has none that of the project's folder; else the empty one. Empty folder: no
// project is open.
Office officeInForce(const std::wstring& programFolder, const std::wstring& projectFolder);
// Whether it came with the project.
bool isOfficeOfProject(const std::wstring& programFolder, const std::wstring& projectFolder);
// The same for a project's file, whose folder is the project's.
Office officeForFile(const std::wstring& programFolder, const std::wstring& projectFile);
FileResult writeOffice(const std::wstring& path, const Office& office);
