#include "section/gl_block.h"

GLBlockDB::~GLBlockDB()
{
    // Inner blocks that go with this one hand their objects over first: a chain of blocks of any depth, which
    // a module may build, must not run down the stack.
    std::vector<GLObjectDB*> waiting = std::move(data_.objects);
    while (!waiting.empty()) {
        GLObjectDB* object = waiting.back();
        waiting.pop_back();
        if (!object)
            continue;
        auto* block = dynamic_cast<GLBlockDB*>(object);
        if (block && block->referenceCount() == 1) {
            std::vector<GLObjectDB*>& inner = block->data_.objects;
            waiting.insert(waiting.end(), inner.begin(), inner.end());
            inner.clear();
        }
        object->release();
    }
}
