#pragma once

#include <utility>

// A counted object that keeps a tally of how many of it are alive.
template <class Base>
class Counted : public Base
{
public:
    template <class... Arguments>
    explicit Counted(int& alive, Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...)
        , alive_(alive)
    {
        ++alive_;
    }
    ~Counted() override { --alive_; }

private:
    int& alive_;
};
