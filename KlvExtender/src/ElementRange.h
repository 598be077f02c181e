#pragma once

#include <limits>

/// Elements of a multi-value field, from `begin` up to but not including `end`.
struct ElementRange
{
    int begin = 0;
    int end = std::numeric_limits<int>::max(); ///< of all elements, however many
    int count() const { return end - begin; }
};
