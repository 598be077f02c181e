#pragma once

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoSeparator.h>

/// A root with a number of cubes below it, in groups of a thousand or all its own children.
class GroupedScene
{
public:
    enum Shape
    {
        Nested,
        Flat
    };

    explicit GroupedScene(int cubes, Shape shape = Nested)
    {
        m_root->ref();
        SoSeparator* group = m_root;
        for (int i = 0; i < cubes; ++i) {
            if (shape == Nested && i % 1000 == 0)
                m_root->addChild(group = new SoSeparator);
            group->addChild(new SoCube);
        }
    }
    ~GroupedScene() { m_root->unref(); }

    GroupedScene(const GroupedScene&) = delete;
    GroupedScene& operator=(const GroupedScene&) = delete;

    SoSeparator* root() const { return m_root; }

private:
    SoSeparator* m_root = new SoSeparator;
};
