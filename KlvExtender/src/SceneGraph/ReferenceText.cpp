#include "ReferenceText.h"

#include "ReadErrorSilencer.h"

#include <Inventor/SbName.h>
#include <Inventor/SoPath.h>
#include <Inventor/misc/SoBase.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoNode.h>

#include <algorithm>
#include <cctype>
#include <unordered_set>
#include <utility>
#include <vector>

namespace {

/// The first word, string, bracket, brace or comma of a text, after blanks and comments; empty at the end.
std::string_view nextToken(std::string_view text)
{
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
        if (!text.starts_with('#'))
            break;
        text.remove_prefix(std::min(text.find_first_of("\r\n"), text.size()));
    }
    if (text.starts_with('"')) {
        const auto isMarked = [&](std::size_t quote) {
            return text[quote - 1] == '\\' && !text.substr(quote + 1).starts_with('\n');
        };
        std::size_t end = text.find('"', 1);
        while (end != std::string_view::npos && isMarked(end))
            end = text.find('"', end + 1);
        return end == std::string_view::npos ? text : text.substr(0, end + 1);
    }
    const std::size_t length = text.find_first_of(" \t\n\v\f\r#\"{}[],");
    return text.substr(0, std::max<std::size_t>(length, 1));
}

/// Coin reads what is nested by recursion.
constexpr int DeepestNesting = 5000;

/// The text such that Coin's reader can be trusted with it, or none: the reader takes a comma after `USE
/// name` for a part of the name, and crashes on a path without a head and on very deep nesting.
std::string prepared(std::string_view text)
{
    // The blank keeps a first comment from being taken for the header of a file.
    std::string result = " ";
    std::string_view last;
    std::string_view lastButOne;
    int depth = 0;
    for (;;) {
        const std::string_view token = nextToken(text);
        const bool isHead = !token.empty() && !token.starts_with("NULL") &&
                            (std::isalpha(static_cast<unsigned char>(token[0])) || token[0] == '_');
        if (lastButOne.ends_with("Path") && last == "{" && !isHead)
            return {};
        depth += token == "{" ? 1 : token == "}" ? -1 : 0;
        if (depth > DeepestNesting)
            return {};
        if (token.empty())
            break;
        const std::size_t end = static_cast<std::size_t>(token.data() - text.data()) + token.size();
        result.append(text.substr(0, end));
        if (last == "USE")
            result += ' ';
        text.remove_prefix(end);
        lastButOne = last;
        last = token;
    }
    // The line break keeps an object at the very end from being taken for cut off.
    return result.append(text) + '\n';
}

/// Paths are printed as the nodes along them, each the last of the children that are printed with it.
SoPath* pathThrough(SoNode* head)
{
    auto* path = new SoPath(head);
    for (SoChildList* children = head->getChildren(); children && children->getLength() > 0;
         children = path->getTail()->getChildren())
        path->append(children->getLength() - 1);
    return path;
}

/// The first node found that has a node above it as a child; null when there is none. What walks a graph with
/// such a node would never end.
SoNode* findCycle(SoNode* root)
{
    std::vector<std::pair<SoNode*, int>> way{{root, 0}};
    std::unordered_set<const SoNode*> onWay{root};
    std::unordered_set<const SoNode*> done;
    while (!way.empty()) {
        auto& [node, next] = way.back();
        const SoChildList* children = node->getChildren();
        if (!children || next == children->getLength()) {
            onWay.erase(node);
            done.insert(node);
            way.pop_back();
            continue;
        }
        SoNode* child = (*children)[next++];
        if (!child || done.count(child))
            continue;
        if (!onWay.insert(child).second)
            return node;
        way.emplace_back(child, 0);
    }
    return nullptr;
}

} // namespace

ReferenceText::ReferenceText(std::string_view text, SoType type)
    : m_text(prepared(text))
    , m_type(type)
{
    m_in.setBuffer(m_text.data(), m_text.size());
}

ReferenceText::~ReferenceText()
{
    for (SoBase* object : m_objects)
        if (object)
            object->unref();
}

bool ReferenceText::readOne()
{
    const ReadErrorSilencer silencer;
    return readNext() && atEnd();
}

bool ReferenceText::readList()
{
    const ReadErrorSilencer silencer;
    if (!take('['))
        return readNext() && atEnd();
    while (!take(']')) {
        if (!readNext())
            return false;
        take(',');
    }
    return atEnd();
}

bool ReferenceText::readNext()
{
    SbName word;
    if (!m_in.read(word, TRUE))
        return false;
    if (word == "NULL") {
        m_objects.push_back(nullptr);
        return true;
    }
    m_in.putBack(word.getString());

    const bool isPath = m_type == SoPath::getClassTypeId();
    SoBase* object = nullptr;
    if (!SoBase::read(&m_in, object, isPath ? SoBase::getClassTypeId() : m_type) || !object)
        return false;
    object->ref();
    const bool isNode = object->isOfType(SoNode::getClassTypeId());
    if (SoNode* cycle = isNode ? findCycle(static_cast<SoNode*>(object)) : nullptr) {
        // Emptied, or the nodes would hold each other for ever.
        cycle->getChildren()->truncate(0);
        object->unref();
        return false;
    }
    if (isPath && isNode) {
        SoPath* path = pathThrough(static_cast<SoNode*>(object));
        path->ref();
        object->unref();
        object = path;
    }
    m_objects.push_back(object);
    return object->isOfType(m_type);
}

bool ReferenceText::take(char mark)
{
    char next = '\0';
    if (!m_in.read(next))
        return false;
    if (next == mark)
        return true;
    m_in.putBack(next);
    return false;
}

bool ReferenceText::atEnd()
{
    char next = '\0';
    return !m_in.read(next);
}
