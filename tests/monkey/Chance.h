#pragma once

#include <QList>
#include <QWidget>

#include <random>

/// Decides what happens; what it decides follows from the seed.
class Chance
{
public:
    void seed(quint64 seed) { m_random.seed(seed); }

    // Two draws in one expression belong into braces, which give them an order in every build.

    /// A number from 0 to below `count`; 0 when there is none.
    int pick(int count) { return count > 0 ? int(m_random() % quint64(count)) : 0; }
    /// One of the items; what the type makes of nothing when there is none.
    template <class Item>
    Item pickFrom(const QList<Item>& list)
    {
        return list.value(pick(int(list.size())));
    }
    QPoint pickPoint(const QWidget* widget) { return {pick(widget->width()), pick(widget->height())}; }

private:
    std::mt19937_64 m_random;
};
