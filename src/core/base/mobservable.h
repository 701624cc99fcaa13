#pragma once

#include "core/base/mobject.h"

#include <cstddef>
#include <cstdint>
#include <list>

// Is told that something has changed; what it was it asks for itself.
class IMObserver
{
public:
    virtual void update() = 0;
    virtual ~IMObserver() = default;
};

// The order of these operations is known to modules that were built apart from the shell.
class IMObservable
{
public:
    // Appends the observer, which is not owned and may stand in the list twice; returns its position.
    virtual std::size_t attach(IMObserver* observer) = 0;
    // Removes the observer wherever it stands.
    virtual void detach(IMObserver* observer) = 0;
    virtual void setNotifying(bool notifying) = 0;
    // Tells every observer, from first to last, unless notifying is off.
    virtual void notify() = 0;
    virtual ~IMObservable() = default;
};

class MObservable : public IMObservable, public MObject
{
public:
    std::size_t attach(IMObserver* observer) override;
    void detach(IMObserver* observer) override;
    void setNotifying(bool notifying) override { notifying_ = notifying ? 1 : 0; }
    // An observer that another one detaches meanwhile is not told any more.
    void notify() override;
    void detachAll() { observers_.clear(); }

private:
    std::int32_t notifying_ = 1;
    std::list<IMObserver*> observers_;
};
