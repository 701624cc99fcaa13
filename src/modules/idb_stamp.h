#pragma once

// The place of a project's document stamps. It has no operations of its own.
class IDBStamp
{
public:
    virtual ~IDBStamp() = 0;
};

inline IDBStamp::~IDBStamp() = default;
