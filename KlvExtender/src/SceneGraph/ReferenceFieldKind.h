#pragma once

#include "FieldBits.h"
#include "FieldChange.h"
#include "FieldKind.h"
#include "NumericFields.h"
#include "ReferenceText.h"

#include <Inventor/SoPath.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/nodekits/SoBaseKit.h>
#include <Inventor/nodekits/SoNodekitCatalog.h>
#include <Inventor/nodes/SoNode.h>

#include <algorithm>

/// Fields that refer to nodes, engines or paths. Their text describes new objects, so the present text, which
/// describes the present ones, changes nothing.
template <class Field>
class ReferenceFieldKind final : public FieldKind
{
public:
    using Element = FieldElement<Field>;
    using Object = std::remove_pointer_t<Element>;

    bool setValue(SoField& base, std::string_view text) const override
    {
        auto& field = static_cast<Field&>(base);
        if (isPresentText(base, text)) {
            const FieldChange change(base);
            return true;
        }
        ReferenceText reader(text, acceptedType(field));
        if (!(isMultiField<Field> ? reader.readList() : reader.readOne()))
            return false;
        const std::vector<Element> objects = reader.template objects<Object>();
        const FieldChange change(field);
        if constexpr (isMultiField<Field>)
            setAll(field, objects);
        else
            field.setValue(objects.front());
        return true;
    }

    bool setElement(SoMField& base, int index, std::string_view text) const override
    {
        if constexpr (isMultiField<Field>) {
            auto& field = static_cast<Field&>(base);
            const int count = field.getNum();
            if (isPresentText(base, index, text)) {
                const FieldChange change(base, index, 1);
                return true;
            }
            ReferenceText reader(text, Object::getClassTypeId());
            if (!reader.readOne() || !canHold(field, std::int64_t(index) + 1))
                return false;
            const FieldChange change(field, std::min(index, count), std::max(index - count, 0) + 1);
            growTo(field, index);
            field.set1Value(index, reader.template objects<Object>().front());
            return true;
        } else {
            return FieldKind::setElement(base, index, text);
        }
    }

    void insertElements(SoMField& base, int first, int count) const override
    {
        if constexpr (std::is_same_v<Field, SoMFPath>) {
            // A path list that grows in place looks at paths that it has let go of already.
            auto& field = static_cast<SoMFPath&>(base);
            SoMFPath before;
            copyFieldValue(before, field);
            std::vector<SoPath*> paths;
            for (int i = 0; i < before.getNum(); ++i)
                paths.push_back(before[i]);
            paths.insert(paths.begin() + first, static_cast<std::size_t>(count), nullptr);
            setAll(field, paths);
        } else {
            FieldKind::insertElements(base, first, count);
        }
    }

private:
    /// A node kit makes parts of nodes of other types than its catalog says without looking, and crashes.
    static SoType acceptedType(const Field& field)
    {
        const SoFieldContainer* container = field.getContainer();
        SbName name;
        if (!container || !container->isOfType(SoBaseKit::getClassTypeId()) ||
            !container->getFieldName(&field, name))
            return Object::getClassTypeId();
        const SoNodekitCatalog* catalog = static_cast<const SoBaseKit*>(container)->getNodekitCatalog();
        const int part = catalog->getPartNumber(name);
        return part < 0 ? Object::getClassTypeId() : catalog->getType(part);
    }
    /// Replaces a whole list. Only from empty does it count its references right.
    static void setAll(Field& field, const std::vector<Element>& objects)
    {
        field.setNum(0);
        field.setNum(static_cast<int>(objects.size()));
        for (std::size_t i = 0; i < objects.size(); ++i)
            field.set1Value(static_cast<int>(i), objects[i]);
    }
};
