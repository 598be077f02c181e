#include "Scene/SceneNesting.h"

#include "Models/SceneChildren.h"

#include <Inventor/nodes/SoNode.h>

#include <QFile>

#include <unordered_set>
#include <vector>

namespace {

constexpr int deepest = 5000;

/// Follows the braces of a scene's text, outside strings and comments.
class DepthCounter
{
public:
    /// True as soon as the text is too deep.
    bool read(const QByteArray& text)
    {
        for (const char c : text) {
            if (m_inComment)
                m_inComment = c != '\n' && c != '\r';
            else if (m_inString)
                readInString(c);
            else if (c == '#')
                m_inComment = true;
            else if (c == '"')
                m_inString = true;
            else if (c == '{' || c == '[')
                ++m_depth;
            else if (c == '}' || c == ']')
                --m_depth;
            if (m_depth > deepest)
                return true;
        }
        return false;
    }

private:
    void readInString(char c)
    {
        m_inString = c != '"' || m_escaped;
        m_escaped = c == '\\' && !m_escaped;
    }

    int m_depth = 0;
    bool m_inComment = false;
    bool m_inString = false;
    bool m_escaped = false;
};

} // namespace

bool SceneNesting::isTooDeep(const QString& file)
{
    QFile text(file);
    if (!text.open(QIODevice::ReadOnly))
        return false;
    const QByteArray header = text.peek(64).split('\n').constFirst();
    if (!header.startsWith('#') || header.contains("binary"))
        return false;
    DepthCounter counter;
    while (!text.atEnd()) {
        if (counter.read(text.read(1 << 20)))
            return true;
    }
    return false;
}

SoNode* SceneNesting::endless(SoNode* root)
{
    struct Level
    {
        SoNode* node;
        SceneChildren children;
        int next = 0;
    };
    std::vector<Level> path;
    std::unordered_set<const SoNode*> open;
    std::unordered_set<const SoNode*> done;
    const auto enter = [&](SoNode* node) {
        path.push_back({node, SceneChildren(node)});
        open.insert(node);
    };
    enter(root);
    while (!path.empty()) {
        Level& level = path.back();
        if (level.next == level.children.count()) {
            done.insert(level.node);
            open.erase(level.node);
            path.pop_back();
            continue;
        }
        SoNode* child = level.children[level.next++];
        // Leaves are most of a scene, and cannot hold anything.
        if (!child || !SceneChildren::arePossible(child) || done.count(child))
            continue;
        if (open.count(child) || int(path.size()) >= deepest)
            return level.node;
        enter(child);
    }
    return nullptr;
}
