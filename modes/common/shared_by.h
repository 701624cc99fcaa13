#pragma once

#include <map>
#include <memory>

// The one of its kind for this key: made by whoever asks first, gone with the last who holds it, be that a
// screen or a step of undo.
template <class Held, class Key>
std::shared_ptr<Held> sharedBy(const Key& key)
{
    static std::map<Key, std::weak_ptr<Held>> all;
    std::weak_ptr<Held>& known = all[key];
    std::shared_ptr<Held> held = known.lock();
    if (!held)
        known = held = std::make_shared<Held>();
    return held;
}
