#include "core/base/reference.h"
#include "core/counted.h"
#include "section/gl_arc.h"
#include "section/gl_block.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{

using Arc = Counted<GLArcDB>;
using Block = Counted<GLBlockDB>;

class Blocks : public testing::Test
{
protected:
    Arc* arc() { return new Arc(alive, GLArcData(), Uuid(), L"GLArcDB", Uuid()); }
    Block* block(std::vector<GLObjectDB*> objects)
    {
        return new Block(alive, GLBlockData{std::move(objects)}, Uuid(), L"Legend", Uuid());
    }

    int alive = 0;
};

} // namespace

TEST_F(Blocks, TakeOverTheReferencesOfTheirObjects)
{
    Arc* shared = arc();
    shared->addRef();
    Block* group = block({arc(), nullptr, shared, block({arc()})});
    EXPECT_EQ(shared->referenceCount(), 2);
    EXPECT_EQ(alive, 5);
    group->release();
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(shared->release(), 0);
}

TEST_F(Blocks, AnInnerBlockThatIsHeldElsewhereKeepsItsObjects)
{
    Block* inner = block({arc()});
    inner->addRef();
    block({block({inner})})->release();
    EXPECT_EQ(alive, 2);
    EXPECT_EQ(inner->objects().size(), 1U);
    inner->release();
    EXPECT_EQ(alive, 0);
}

TEST_F(Blocks, GoAtAnyDepthWithoutRunningDownTheStack)
{
    GLObjectDB* nested = arc();
    for (int level = 0; level < 300000; ++level)
        nested = block({nested});
    EXPECT_EQ(alive, 300001);
    nested->release();
    EXPECT_EQ(alive, 0);
}

TEST_F(Blocks, ReleaseTheirObjectsInOrderThoseOfInnerBlocksInTheirPlace)
{
    std::string log;
    class Named : public GLArcDB
    {
    public:
        Named(std::string& log, char name)
            : GLArcDB(GLArcData(), Uuid(), L"GLArcDB", Uuid())
            , log_(log)
            , name_(name)
        {
        }
        ~Named() override { log_ += name_; }

    private:
        std::string& log_;
        char name_;
    };
    const auto named = [&](char name) { return new Named(log, name); };
    Block* shared = block({named('x')});
    shared->addRef();
    block({named('a'), block({named('b'), block({named('c')}), named('d')}), shared, named('e')})->release();
    EXPECT_EQ(log, "abcde");
    shared->release();
    EXPECT_EQ(log, "abcdex");
}

TEST_F(Blocks, HaveNoColourOfTheirOwn)
{
    Arc* only = arc();
    const auto group = Reference<Block>::adopt(block({only}));
    group->setColor({1, 0, 0});
    EXPECT_EQ(group->getColor(), Vec3());
    EXPECT_EQ(only->getColor(), Vec3());
}
