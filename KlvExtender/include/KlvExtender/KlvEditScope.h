#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <QString>

class SoField;
class SoMField;

/// Announces a change of a field and makes one step of the history of it: whoever changes the field and hands
/// the history commands that record this does both while a scope lives.
///
/// \code
/// const KlvEditScope scope(field, row, 1);
/// field->set1Value(row, value);
/// KlvServices::getInstance()->pushCommand(new SetElementCommand(field, row));
/// \endcode
///
/// The history takes its exact copy of "before" when the scope begins and that of "after" when it ends, and
/// of the elements that were announced only: the cost of undo does not depend on the size of the field.
/// Without a scope the history goes by the copy of the selected field that it keeps at idle time.
///
/// Commands of the field that are pushed meanwhile are executed at once and become one step when the scope
/// ends; without any there is no step, but a change is still listed (`KlvChanges`) and has the history no
/// longer clean. A scope inside another one does nothing. Made on the stack, on the
/// user-interface thread. The field's container is kept alive meanwhile; a field without one must outlive the
/// scope.
class KLV_EXTENDER_EXPORT KlvEditScope
{
public:
    /// Any part of the field may change. A null field is as no scope.
    explicit KlvEditScope(SoField* field, const QString& text = QString());
    /// Only `count` elements from `start` on are set or deleted, and elements inserted at `start`; the others
    /// move along at most. The elements need not exist: those set beyond the end are added. What changes
    /// elsewhere in a large field meanwhile is not undone with the step.
    ///
    /// A `text` names the step, with "%1" where the field's name goes, and keeps it from joining other steps.
    /// Without one the step is named, and joins, as its first command does.
    KlvEditScope(SoMField* field, int start, int count, const QString& text = QString());
    ~KlvEditScope();

    KlvEditScope(const KlvEditScope&) = delete;
    KlvEditScope& operator=(const KlvEditScope&) = delete;

private:
    const bool m_outermost;
};
