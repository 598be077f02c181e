#include "Models/RowDiff.h"

#include <algorithm>
#include <unordered_map>

std::vector<int> keptRows(const std::vector<const void*>& before, const std::vector<const void*>& after)
{
    std::vector<int> kept(after.size(), -1);
    if (before.empty() || after.empty())
        return kept;

    // The new places of each entry, the last one first, so that they are handed out in order from the back.
    std::unordered_map<const void*, std::vector<int>> places;
    for (int i = static_cast<int>(after.size()); i-- > 0;)
        places[after[i]].push_back(i);

    // The longest increasing subsequence of new places: ends[k] is the old row that ends the best run of k
    // + 1.
    std::vector<int> place(before.size(), -1);
    std::vector<int> previous(before.size(), -1);
    std::vector<int> ends;
    for (int row = 0; row < static_cast<int>(before.size()); ++row) {
        const auto found = places.find(before[row]);
        if (found == places.end() || found->second.empty())
            continue;
        place[row] = found->second.back();
        found->second.pop_back();
        const auto end = std::lower_bound(ends.begin(), ends.end(), place[row],
                                          [&place](int other, int wanted) { return place[other] < wanted; });
        if (end != ends.begin())
            previous[row] = *(end - 1);
        if (end == ends.end())
            ends.push_back(row);
        else
            *end = row;
    }
    for (int row = ends.empty() ? -1 : ends.back(); row >= 0; row = previous[row])
        kept[place[row]] = row;
    return kept;
}
