#include "document/docx.h"
#include "document/html.h"
#include "document/odt.h"
#include "document/sample_document.h"
#include "document/xlsx.h"

#include <fstream>
#include <iostream>

// write_documents FOLDER [ROWS]: the sample document in every format, for programs outside to open; with ROWS
// a register of that many rows instead.
int main(int argumentCount, char** arguments)
{
    if (argumentCount < 2)
        return 2;
    const std::string folder = arguments[1];
    const auto write = [&](const std::string& name, const std::string& bytes) {
        std::ofstream(folder + "/" + name, std::ios::binary) << bytes;
        std::cout << name << ": " << bytes.size() << " bytes\n";
    };
    const bool isLarge = argumentCount > 2;
    const Document plain = isLarge ? largeRegister(std::stoul(arguments[2])) : sampleDocument();
    write("sample.xlsx", toXlsx(plain));
    write("sample.docx", toDocx(plain));
    write("sample.odt", toOdt(plain));
    write("sample.html", toHtml(plain));
    if (!isLarge) {
        write("framed.docx", toDocx(sampleDocument(true)));
        write("framed.odt", toOdt(sampleDocument(true)));
    }
    return 0;
}
