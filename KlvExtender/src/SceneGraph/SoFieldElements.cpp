#include <KlvExtender/SceneGraph/SoFieldElements.h>

#include "FieldAccess.h"
#include "FieldBits.h"
#include "FieldChange.h"
#include "FieldKind.h"
#include "FieldLimits.h"

#include <KlvExtender/SceneGraph/ObjectLabel.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/SoPath.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/fields/SoMFEngine.h>
#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoMFPath.h>
#include <Inventor/nodes/SoNode.h>

#include <algorithm>

namespace {

bool exists(const SoMField* field, int index)
{
    return field && index >= 0 && index < field->getNum();
}

/// Sees to it that a field can hold that many elements, or says that it cannot.
bool checkRoom(const SoMField& field, std::int64_t count, const char* caller)
{
    if (canHold(field, count))
        return true;
    SoDebugError::post(caller, "a field of type %s cannot hold %lld elements",
                       field.getTypeId().getName().getString(), static_cast<long long>(count));
    return false;
}

SbString summaryOf(const SoBase* object)
{
    return object ? fromUtf16(objectLabel(object)) : SbString("NULL");
}

} // namespace

SbString getElementText(SoMField* field, int index)
{
    SbString text;
    if (exists(field, index))
        field->get1(index, text);
    return text;
}

void insertElements(SoMField* field, int start, int count)
{
    if (!field || start < 0 || count < 1)
        return;
    const int end = field->getNum();
    const int first = std::min(start, end);
    const std::int64_t added = std::int64_t(start) - first + count;
    if (!checkRoom(*field, end + added, "insertElements"))
        return;
    const FieldChange change(*field, first, static_cast<int>(end - first + added));
    FieldKind::of(*field).insertElements(*field, first, static_cast<int>(added));
}

void deleteElements(SoMField* field, int start, int count)
{
    if (!field || start < 0 || count < 1)
        return;
    const int rest = field->getNum() - start;
    if (rest <= 0)
        return;
    const int deleted = std::min(count, rest);
    if (deleted == field->getNum() && !FieldLimits::canBeEmpty(*field)) {
        SoDebugError::post("deleteElements", "%s needs an element in each of its inputs",
                           field->getContainer()->getTypeId().getName().getString());
        return;
    }
    const FieldChange change(*field, start, rest - deleted);
    field->deleteValues(start, deleted);
}

std::unique_ptr<SoMField> copyElements(SoMField* field, int start, int count)
{
    if (!field || !field->getTypeId().canCreateInstance())
        return nullptr;
    std::unique_ptr<SoMField> copy(static_cast<SoMField*>(field->getTypeId().createInstance()));
    // Some types begin with an element.
    copy->setNum(0);
    if (start < 0 || count < 1 || start >= field->getNum())
        return copy;
    const int copied = std::min(count, field->getNum() - start);
    copy->setNum(copied);
    copyElementValues(*copy, 0, *field, start, copied);
    return copy;
}

void setElements(SoMField* field, int start, const SoMField* elements)
{
    if (!field || !elements || start < 0 || field->getTypeId() != elements->getTypeId())
        return;
    const int count = elements->getNum();
    if (count == 0 || !checkRoom(*field, std::int64_t(start) + count, "setElements"))
        return;
    const std::unique_ptr<SoMField> own = field == elements ? copyElements(field, 0, count) : nullptr;
    const int end = field->getNum();
    const int first = std::min(start, end);
    const FieldChange change(*field, first, start + count - first);
    if (start + count > end)
        FieldKind::of(*field).insertElements(*field, end, start + count - end);
    copyElementValues(*field, start, own ? *own : *elements, 0, count);
}

void swapElements(SoMField* field, int index1, int index2)
{
    if (!exists(field, index1) || !exists(field, index2))
        return;
    const auto element1 = copyElements(field, index1, 1);
    const auto element2 = copyElements(field, index2, 1);
    if (!element1 || !element2)
        return;
    const auto [first, last] = std::minmax(index1, index2);
    const FieldChange change(*field, first, last - first + 1);
    copyElementValues(*field, index1, *element2, 0, 1);
    copyElementValues(*field, index2, *element1, 0, 1);
}

SbString getElementSummary(SoMField* field, int index)
{
    if (!exists(field, index))
        return SbString();
    if (field->isOfType(SoMFNode::getClassTypeId()))
        return summaryOf((*static_cast<SoMFNode*>(field))[index]);
    if (field->isOfType(SoMFEngine::getClassTypeId()))
        return summaryOf((*static_cast<SoMFEngine*>(field))[index]);
    if (field->isOfType(SoMFPath::getClassTypeId())) {
        const SoPath* path = (*static_cast<SoMFPath*>(field))[index];
        return summaryOf(path && path->getLength() > 0 ? path->getTail() : nullptr);
    }
    return getElementText(field, index);
}

void valueChanged(SoMField* field, int start, int count, SbBool numChanged)
{
    if (!field)
        return;
    // Auditors are told of single elements only while the others stay where they are.
    if (!numChanged)
        FieldAccess::setChangedElements(*field, start, count);
    field->touch();
    FieldAccess::setChangedElements(*field, -1, 0);
}
