#include <KlvExtender/KlvEditScope.h>

#include "History.h"

#include <KlvExtender/KlvServices.h>

#include <Inventor/fields/SoMField.h>

#include <algorithm>
#include <limits>

namespace {

bool begin(SoField* field, const std::optional<ElementRange>& range, const QString& text)
{
    if (!field)
        return false;
    KlvServices::getInstance(); // which has the history
    return History::current()->beginScope(*field, range, text);
}

ElementRange rangeOf(int start, int count)
{
    const int first = std::max(start, 0);
    return {first, first + std::clamp(count, 0, std::numeric_limits<int>::max() - first)};
}

} // namespace

KlvEditScope::KlvEditScope(SoField* field, const QString& text)
    : m_outermost(begin(field, std::nullopt, text))
{
}

KlvEditScope::KlvEditScope(SoMField* field, int start, int count, const QString& text)
    : m_outermost(begin(field, rangeOf(start, count), text))
{
}

KlvEditScope::~KlvEditScope()
{
    if (m_outermost && History::current())
        History::current()->endScope();
}
