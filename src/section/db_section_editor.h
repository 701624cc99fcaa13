#pragma once

#include "modules/idb_section_editor.h"

// Common base of what works on the section editor's store.
class SectionEditorCommonController
{
};

class DBSectionEditor : public SectionEditorCommonController, public IDBSectionEditor
{
public:
    DBSectionEditor() = default;
    DBSectionEditor(const DBSectionEditor&) = delete;
    DBSectionEditor& operator=(const DBSectionEditor&) = delete;
    ~DBSectionEditor() override;

    SectionEditorList& getListA() override { return listA_; }
    SectionEditorList& getListB() override { return listB_; }
    SectionEditorList& getListC() override { return listC_; }
    SectionEditorList& getListD() override { return listD_; }

    SectionObjectMap& getObjectsA() override { return objectsA_; }
    void addObjectsA(const std::wstring& section, const std::vector<GLEdObjectDB*>& objects) override;
    void setObjectsA(const SectionObjectMap& objects) override;
    void clearObjectsA() override;

    SectionObjectMap& getObjectsB() override { return objectsB_; }
    void addObjectsB(const std::wstring& section, const std::vector<GLEdObjectDB*>& objects) override;
    void setObjectsB(const SectionObjectMap& objects) override;
    void clearObjectsB() override;

    BoreholeQuery queryBoreholesA(const std::wstring& section) override;
    BoreholeQuery queryBoreholesB(const std::wstring& section) override;

private:
    SectionEditorList listA_;
    SectionEditorList listB_;
    SectionEditorList listC_;
    SectionEditorList listD_;
    SectionObjectMap objectsA_;
    SectionObjectMap objectsB_;
};
