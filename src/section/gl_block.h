#pragma once

#include "section/records/gl_object.h"

#include <utility>
#include <vector>

// The stored fields of a block beside its name.
struct GLBlockData {
    std::vector<GLObjectDB*> objects;
};

// A group of drawing objects, other blocks among them. Takes over the caller's reference on each object and
// gives it back when it goes. A block has no colour of its own: its colour stays zero.
class GLBlockDB : public GLObjectDB
{
public:
    GLBlockDB(GLBlockData data, const Uuid& id, const std::wstring& name, const Uuid& linkId)
        : GLObjectDB(id, name, linkId)
        , data_(std::move(data))
    {
    }
    ~GLBlockDB() override;

    const Vec3& getColor() const override { return color_; }
    void setColor(const Vec3&) override { }

    const GLBlockData& data() const { return data_; }
    const std::vector<GLObjectDB*>& objects() const { return data_.objects; }

private:
    GLBlockData data_;
    Vec3 color_;
};
