#pragma once

#include "core/base/mobject.h"
#include "modules/idb_hatch.h"

class DBHatch : public MObject, public IDBHatch
{
public:
    const Patterns& getHatches() override { return patterns_; }
    void addHatch(std::uint32_t number, const std::vector<std::uint8_t>& pattern) override
    {
        patterns_.emplace(number, pattern);
    }

private:
    Patterns patterns_;
};
