#pragma once

#include "core/base/mobject.h"
#include "core/base/uuid.h"
#include "section/records/vec3.h"

#include <array>
#include <cstdint>
#include <string>

// A drawing object of a section: what is common to lines, texts, blocks and the rest. Records only: the
// drawing modules fill and read them, the project holds them by reference count, the file carries them.
class GLObjectDB : public MObject
{
public:
    GLObjectDB(const Uuid& id, const std::wstring& name, const Uuid& linkId)
        : id_(id)
        , name_(name)
        , linkId_(linkId)
    {
    }

    virtual const Vec3& getColor() const = 0;
    virtual void setColor(const Vec3& color) = 0;

    const Uuid& getId() const { return id_; }
    const std::wstring& getName() const { return name_; }
    const Uuid& getLinkId() const { return linkId_; }

    // Both belong to the drawing modules and are not stored in the file.
    std::int32_t objectState = 1;

private:
    Uuid id_;
    std::wstring name_;

public:
    std::array<std::uint8_t, 3> stateBytes{};

private:
    Uuid linkId_;
};
