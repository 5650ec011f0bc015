// Picks the table of flares out of the service's page.
#pragma once

#include <string_view>

#include "flares/flare_list.h"

namespace vantrace {

class Clock;

/// Adds a row for each flare of the page, a text without line ends whose times are UTC; the rows tell local
/// time, by the clock's present year and offset. The table is known by what stands around its cells:
///
/// - It starts behind "istance to" of its heading. A page without that throws.
/// - The first "<TD>" cell of 7 or more characters (of UTF-8) ends it. Where no further "<TD>" comes the
///   search has gone wrong in a way that is kept: it goes on at the page's fourth character, and the text up
///   to the next "<" is taken for a cell.
/// - A page that ends between two cells of a row leaves the row as far as it was filled. One that ends within
///   a cell throws.
/// - Behind a cell's tag that nobody closes, its text is taken from the start of the page.
///
/// Going back to the start can lead a page's reader round and round; a page of which that is sure throws
/// after a few rounds, and so does one with more rows or more text than flares.dat can hold. What has been
/// thrown is a std::exception, also for a date or time that is none; the rows so far are in the list. The
/// time that all this takes grows with the page's length alone.
void readFlareTable(std::string_view page, const Clock& clock, FlareList& list);

}  // namespace vantrace
