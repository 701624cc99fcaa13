#pragma once

#include "core/base/mexception.h"
#include "core/base/mobject.h"
#include "core/base/reference.h"
#include "db/db_project.h"

#include <concepts>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

// How a file becomes a living object. A factory is made for one format version, asked for one object,
// released.
template <class Object>
class IFileFactory : public MObject
{
public:
    // A new object with its count of 1, which the caller owns.
    virtual Object* createDB() = 0;
};

template <class Object>
class FromFileFactory : public IFileFactory<Object>
{
public:
    // The bytes stay the caller's and must outlive the factory. Throws the wide string "Bad params" where the
    // path or the bytes are empty.
    FromFileFactory(const std::wstring& path, const std::vector<std::uint8_t>& bytes)
        : path_(path)
        , bytes_(&bytes)
    {
        if (path.empty() || bytes.empty())
            throw std::wstring(L"Bad params");
    }

    // On failure nothing of the object is left: an MException or a standard exception passes with its text,
    // anything else becomes MException.
    Object* createDB() override
    {
        auto object = makeReference<Object>();
        // So that a failure in the head can name the file.
        if constexpr (std::same_as<Object, DBProject>)
            object->setFilePath(path_);
        try {
            readDB(*bytes_, *object);
        } catch (const MException& failure) {
            throw MException(failure.message(), failure.code());
        } catch (const std::exception& failure) {
            throw std::runtime_error(failure.what());
        } catch (...) {
            throw MException(L"Unknown error during creation of database");
        }
        return object.detach();
    }

    // Fills the object from the bytes of a file whose head has been checked.
    virtual void readDB(const std::vector<std::uint8_t>& bytes, Object& object) = 0;

protected:
    std::wstring path_;

private:
    const std::vector<std::uint8_t>* bytes_;
};
