#pragma once

#include <string_view>

// Names in the order in which a person reads a list: numbers inside them by value, letters without regard to
// case, so that "Скв-2" stands before "Скв-11" and "скв-3". A strict weak order; names that differ in case or
// in zeros alone ("1", "01") still have an order. The maps of a project keep their own.
bool standsBefore(std::wstring_view a, std::wstring_view b);
