#include "section/gl_block.h"

GLBlockDB::~GLBlockDB()
{
    // A chain of blocks of any depth, which a module may build, must not run down the stack: a block that
    // goes with another one hands its objects over to the outermost, which releases them next. So every
    // object goes in the order in which it would without that. Blocks of different projects may go in threads
    // of their own.
    static thread_local std::vector<GLObjectDB*>* waiting = nullptr; // the next one last
    if (waiting) {
        waiting->insert(waiting->end(), data_.objects.rbegin(), data_.objects.rend());
        return;
    }
    std::vector<GLObjectDB*> objects(data_.objects.rbegin(), data_.objects.rend());
    waiting = &objects;
    while (!objects.empty()) {
        GLObjectDB* next = objects.back();
        objects.pop_back();
        if (next)
            next->release();
    }
    waiting = nullptr;
}
