#include "document/office_package.h"

#include "document/office_text.h"

namespace
{

constexpr const char* packageSpace = "http://schemas.openxmlformats.org/package/2006/relationships";

std::string relationship(const std::string& id, const std::string& type, const std::string& target)
{
    return "<Relationship Id=\"" + id + "\" Type=\"" + type + "\" Target=\"" + target + "\"/>";
}

std::string relationships(const std::string& rows)
{
    return std::string(xmlDeclaration) + "<Relationships xmlns=\"" + packageSpace + "\">" + rows
        + "</Relationships>";
}

std::string coreProperties(const Document& document)
{
    return std::string(xmlDeclaration)
        + R"(<cp:coreProperties xmlns:cp="http://schemas.openxmlformats.org/package/2006/metadata/core-properties")"
          R"( xmlns:dc="http://purl.org/dc/elements/1.1/">)"
        + "<dc:title>" + markupText(document.title) + "</dc:title><dc:creator>" + markupText(document.author)
        + "</dc:creator></cp:coreProperties>";
}

} // namespace

OfficePackage::OfficePackage(std::string mainPart, std::string mainType)
    : mainPart_(std::move(mainPart))
    , mainType_(std::move(mainType))
{
}

std::string OfficePackage::addPart(
    const std::string& name, const std::string& type, const std::string& relation)
{
    parts_.push_back({name, type, relation});
    return "rId" + std::to_string(parts_.size());
}

std::string OfficePackage::contentTypes() const
{
    const auto row = [](const std::string& name, const std::string& type) {
        return "<Override PartName=\"/" + name + "\" ContentType=\"" + type + "\"/>";
    };
    const std::string folder = mainPart_.substr(0, mainPart_.find('/') + 1);
    std::string text = std::string(xmlDeclaration)
        + R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
          R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
          R"(<Default Extension="xml" ContentType="application/xml"/>)"
          R"(<Default Extension="emf" ContentType="image/x-emf"/><Default Extension="png" ContentType="image/png"/>)"
        + row(mainPart_, mainType_)
        + row("docProps/core.xml", "application/vnd.openxmlformats-package.core-properties+xml");
    for (const Part& part : parts_)
        if (!part.type.empty())
            text += row(folder + part.name, part.type);
    return text + "</Types>";
}

void OfficePackage::write(ZipArchive& zip, const Document& document) const
{
    zip.add("[Content_Types].xml", contentTypes());
    zip.add("_rels/.rels",
        relationships(relationship("rId1", std::string(relationSpace) + "/officeDocument", mainPart_)
            + relationship("rId2",
                "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties",
                "docProps/core.xml")));
    zip.add("docProps/core.xml", coreProperties(document));
    std::string rows;
    for (std::size_t i = 0; i < parts_.size(); ++i)
        rows += relationship("rId" + std::to_string(i + 1),
            std::string(relationSpace) + "/" + parts_[i].relation,
            parts_[i].name);
    const std::size_t slash = mainPart_.find('/') + 1;
    zip.add(mainPart_.substr(0, slash) + "_rels/" + mainPart_.substr(slash) + ".rels", relationships(rows));
}
