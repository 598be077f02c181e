#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <QList>
#include <QObject>

#include <memory>

class FieldSnapshot;
class SoField;

/// What has been changed through the history since the scene was opened: every edited field that is not as
/// it was then, with a typed copy of what it was.
///
/// Only what passes through `KlvServices::pushCommand()` or is announced with a `KlvEditScope` counts, so
/// fields that the application or its engines change are not listed. The list outlives the history: it stays
/// when that is cleared. A field that is as it was again, by undo or otherwise, is no longer listed; edited
/// once more, it is compared with the same original. Fields of more than 64 KiB are compared only when they
/// have not been edited for a moment, and are listed until then. The containers of all these fields are
/// referenced until `restart()`; fields without a container are not listed. User-interface thread only; owned
/// by `KlvServices`.
///
/// The originals together take no more memory than the copies of the history may, see
/// `KlvServices::setCopyBudget()`. When that does not suffice, those of fields that are no longer listed are
/// forgotten; fields beyond it are listed without an original, as are those of which nobody had a copy in
/// time.
class KLV_EXTENDER_EXPORT KlvChanges : public QObject
{
    Q_OBJECT

public:
    ~KlvChanges() override;

    /// The changed fields in the order in which they were first changed.
    QList<SoField*> getFields() const;
    /// Constant time, so that it can be asked for every field of a large scene.
    bool isChanged(const SoField* field) const;
    /// The field as it was, a field of its own without a container, default and ignored flags included; null
    /// when it is not listed or no original was kept. Valid until the next `changed()`.
    SoField* getOriginal(const SoField* field) const;

    /// Makes fields what they were, as one step of the history, which can be undone as long as it keeps its
    /// copies. Those that are not listed, and those whose original was not kept, stay as they are.
    void revert(const QList<SoField*>& fields);

    /// From now on what the fields are counts as the original: forgets all changes. An empty history is clean
    /// then, whatever was edited.
    void restart();

Q_SIGNALS:
    /// The list, or a value of a listed field, has changed through the history. Sent once for many changes,
    /// when the event loop comes round.
    void changed();

private:
    KlvChanges();

    // What the history tells. It asks for an original before it makes its first change to a field.
    bool needsOriginal(const SoField& field) const;
    void keepOriginal(SoField& field, const std::shared_ptr<const FieldSnapshot>& original);
    /// Looks whether a field is as it was; at a large one only after a while. Only the address counts unless
    /// the field is known.
    void compare(const SoField* field);
    void announce();

    friend class History;
    friend class KlvServices;
    class Private;
    std::unique_ptr<Private> d;
};
