#include "core/base/mobservable.h"
#include "core/base/reference.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace
{

class NamedObserver : public IMObserver
{
public:
    NamedObserver(std::string& log, char name)
        : log_(log)
        , name_(name)
    {
    }
    void update() override
    {
        log_ += name_;
        if (then)
            then();
    }

    std::function<void()> then;

private:
    std::string& log_;
    char name_;
};

class Observable : public testing::Test
{
protected:
    std::string told()
    {
        log.clear();
        subject->notify();
        return log;
    }

    std::string log;
    NamedObserver a{log, 'a'};
    NamedObserver b{log, 'b'};
    NamedObserver c{log, 'c'};
    Reference<MObservable> subject = makeReference<MObservable>();
};

} // namespace

TEST_F(Observable, TellsInOrderAndAsOftenAsAttached)
{
    EXPECT_EQ(subject->attach(&b), 0U);
    EXPECT_EQ(subject->attach(&a), 1U);
    EXPECT_EQ(subject->attach(&b), 2U);
    EXPECT_EQ(told(), "bab");
    subject->detach(&c);
    subject->detach(&b);
    EXPECT_EQ(told(), "a");
    subject->detachAll();
    EXPECT_EQ(told(), "");
}

TEST_F(Observable, TheSwitchIsNoCounter)
{
    subject->attach(&a);
    subject->setNotifying(false);
    subject->setNotifying(false);
    EXPECT_EQ(told(), "");
    subject->setNotifying(true);
    EXPECT_EQ(told(), "a");
}

TEST_F(Observable, AnUpdateMayAttachAndDetach)
{
    subject->attach(&a);
    subject->attach(&b);
    a.then = [this] {
        subject->detach(&a);
        subject->detach(&b);
        subject->attach(&c);
    };
    EXPECT_EQ(told(), "a") << "b is gone before its turn, c came too late";
    EXPECT_EQ(told(), "c");
    c.then = [this] { subject->detachAll(); };
    EXPECT_EQ(told(), "c");
    EXPECT_EQ(told(), "");
}
