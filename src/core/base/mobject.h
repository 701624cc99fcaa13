#pragma once

#include <cstdint>

// Root of everything that is shared by reference count. A new object has a count of 1, which belongs to
// whoever created it. There is one thread, so the count is a plain integer.
class MObject
{
public:
    MObject() = default;
    MObject(const MObject&) = delete;
    MObject& operator=(const MObject&) = delete;
    virtual ~MObject();

    // Takes one more reference; returns the new count.
    std::int32_t addRef() { return ++references_; }

    // Gives one reference back and destroys the object with the last one; returns the new count.
    std::int32_t release()
    {
        const std::int32_t left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

    std::int32_t referenceCount() const { return references_; }

private:
    std::int32_t references_ = 1;
};
