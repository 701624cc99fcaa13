#pragma once

#include <vector>

// Plain lists of counted objects, as the interfaces shared with modules have them. Null entries are skipped.

template <class Object>
void addRefAll(const std::vector<Object*>& objects)
{
    for (Object* object : objects)
        if (object)
            object->addRef();
}

template <class Object>
void releaseAll(const std::vector<Object*>& objects)
{
    for (Object* object : objects)
        if (object)
            object->release();
}

// Makes the list hold the new objects with a reference of its own each, and gives the old ones back. In this
// order, so that an object which stands in both lists lives through it.
template <class Object>
void replaceAll(std::vector<Object*>& objects, std::vector<Object*> replacements)
{
    addRefAll(replacements);
    objects.swap(replacements);
    releaseAll(replacements);
}
