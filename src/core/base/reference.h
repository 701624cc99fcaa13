#pragma once

#include <utility>

// Holds one reference on an object derived from MObject and gives it back when it goes. The holder for
// everything that is ours; plain pointers remain where the interfaces shared with modules have them.
template <class T>
class Reference
{
public:
    Reference() = default;
    Reference(Reference&& other) noexcept
        : object_(std::exchange(other.object_, nullptr))
    {
    }
    Reference(const Reference& other)
        : object_(other.object_)
    {
        if (object_)
            object_->addRef();
    }
    template <class Derived>
    Reference(Reference<Derived>&& other) noexcept
        : object_(other.detach())
    {
    }
    Reference& operator=(Reference other) noexcept
    {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Reference()
    {
        if (object_)
            object_->release();
    }

    // Takes over the reference that the caller holds, that of a new object for instance.
    static Reference adopt(T* object)
    {
        Reference holder;
        holder.object_ = object;
        return holder;
    }
    // Takes a reference of its own.
    static Reference share(T* object)
    {
        if (object)
            object->addRef();
        return adopt(object);
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }
    // Hands the reference over to the caller.
    T* detach() { return std::exchange(object_, nullptr); }

private:
    T* object_ = nullptr;
};

// A new object of class T; the holder has its first reference.
template <class T, class... Arguments>
Reference<T> makeReference(Arguments&&... arguments)
{
    return Reference<T>::adopt(new T(std::forward<Arguments>(arguments)...));
}
