#pragma once

#include "section/records/gl_object.h"

#include <string>

// The stored fields of a text, in file order.
struct GLTextData {
    Vec3 position;
    Vec3 color;
    float height = 0;
    std::wstring text;
    float angle = 0;
};

class GLTextDB : public GLObjectDB
{
public:
    GLTextDB(GLTextData data, const Uuid& id, const std::wstring& name, const Uuid& linkId)
        : GLObjectDB(id, name, linkId)
        , data_(std::move(data))
    {
    }

    const Vec3& getColor() const override { return data_.color; }
    void setColor(const Vec3& color) override { data_.color = color; }

    const GLTextData& data() const { return data_; }
    const Vec3& position() const { return data_.position; }
    float height() const { return data_.height; }
    const std::wstring& text() const { return data_.text; }
    float angle() const { return data_.angle; }

private:
    GLTextData data_;
};
