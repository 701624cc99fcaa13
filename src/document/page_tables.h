#pragma once

#include "document/page_stack.h"

// Puts a table without its title on the pages: its head again on each page that it reaches, cells whole where
// a page can hold them.
void putTable(PageStack& pages, const TableBlock& block);
