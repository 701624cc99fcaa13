#include "core/base/mobservable.h"

#include <algorithm>
#include <vector>

std::size_t MObservable::attach(IMObserver* observer)
{
    observers_.push_back(observer);
    return observers_.size() - 1;
}

void MObservable::detach(IMObserver* observer)
{
    observers_.remove(observer);
}

void MObservable::notify()
{
    if (notifying_ == 0)
        return;
    // In a copy, since an update may attach and detach.
    const std::vector<IMObserver*> told(observers_.begin(), observers_.end());
    for (IMObserver* observer : told)
        if (std::find(observers_.begin(), observers_.end(), observer) != observers_.end())
            observer->update();
}
