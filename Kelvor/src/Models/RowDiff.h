#pragma once

#include <vector>

/// Which rows of a list stay where they are when it becomes another list: the longest choice that keeps their
/// order. The result has an entry for each new row, the old row that becomes it or -1 when it is to be
/// inserted; old rows that do not appear are to be removed. Equal entries are told apart by their order. O(n
/// log n).
std::vector<int> keptRows(const std::vector<const void*>& before, const std::vector<const void*>& after);
