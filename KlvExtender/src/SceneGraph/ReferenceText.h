#pragma once

#include <Inventor/SoInput.h>
#include <Inventor/SoType.h>

#include <string>
#include <string_view>
#include <vector>

class SoBase;

/// Reads nodes, engines or paths from text with Coin's own reader, whose messages are kept back meanwhile.
/// What was read is referenced until the object goes; nothing is left behind of a text that makes no sense.
class ReferenceText
{
public:
    /// A reader of objects of the given type.
    ReferenceText(std::string_view text, SoType type);
    ~ReferenceText();

    ReferenceText(const ReferenceText&) = delete;
    ReferenceText& operator=(const ReferenceText&) = delete;

    /// Reads a text that is one object or `NULL`.
    bool readOne();
    /// Reads a text that is a list in brackets, or one object.
    bool readList();

    /// What was read, null for `NULL`.
    template <class Object>
    std::vector<Object*> objects() const
    {
        std::vector<Object*> objects;
        for (SoBase* object : m_objects)
            objects.push_back(static_cast<Object*>(object));
        return objects;
    }

private:
    bool readNext();
    bool take(char mark);
    bool atEnd();

    std::string m_text;
    SoInput m_in;
    SoType m_type;
    std::vector<SoBase*> m_objects;
};
