#pragma once

#include "FieldEditors/DvRangeComponent.h"

#include <KlvExtender/KlvEditor.h>

#include <QFrame>
#include <QPointer>
#include <QString>

#include <memory>

class SoFieldSensor;
class SoSensor;

/// Base of all field editors: it ties an editor to one field and owns the frame that holds the editor's
/// widgets.
///
/// While the editor is active a sensor watches the field, so that every change, its own or from elsewhere,
/// comes back as a `refresh()`; a burst of changes comes back once. When the field is destroyed the editor
/// lets go of it and tells so with `editedObjectLost()`. When its frame is destroyed, along with a window
/// that shows it, the editor lets go of the field too and stays hidden until it is loaded again.
class KlvFieldEditors : public KlvEditor
{
public:
    KlvFieldEditors();

    /// Starts to edit the edited object: attaches, refreshes and shows the editor. Without an edited object,
    /// with one that is no field, before `load()` and without a frame the editor stays hidden.
    void activate() override;
    /// Hides the editor and lets go of the field.
    void deactivate() override;
    void hide() override;
    /// Creates the sensor. Subclasses create their widgets on top of it. A field that is still edited is let
    /// go of.
    void load() override;
    void show() override;
    /// Deletes the sensor. The editor can be used again after another `load()`.
    void unload() override;

    /// Sets the field to edit, of a kind that the editor handles; null lets go of the present one. Overrides
    /// call this one, which attaches the sensor.
    virtual void setField(SoField* field);
    /// Reads the field and shows it in the widgets.
    virtual void refresh() = 0;
    /// Switches automatic refreshing on or off.
    virtual void setRefresh(bool on) = 0;
    /// Exchanges two elements of the edited value.
    virtual void swapRows(int row1, int row2) = 0;
    /// Exchanges two columns of the edited value.
    virtual void swapColumns(int column1, int column2) = 0;
    /// Sets one cell of the edited value from text.
    virtual void set1Value(int row, int column, QString text) = 0;
    /// Sets one element from a value of the field's element type.
    virtual void setValue(int index, const void* value) = 0;
    /// Writes what the widgets show into the field and records it as a command.
    virtual void applyChanges() = 0;

    ~KlvFieldEditors() override;

    /// The frame that holds the editor's widgets; the same as `getWidget()`. Null once it was destroyed.
    QFrame* getWidgetContainer() const { return m_container; }

protected:
    /// Makes the frame anew where it was destroyed, and with it all that was in it; true if it did.
    bool renewContainer();

    /// True while the field has changed and the `refresh()` that this brings about has not begun.
    bool isRefreshPending() const;

    /// Sets a field to its default value and records that as a command. A field that is then identical with
    /// its default is marked as default, as it is in a fresh node. Does nothing without a field or a default.
    static void resetToDefault(SoField* field);

    DvRangeComponent m_rangeComponent;

private:
    static void fieldSensorCB(void* data, SoSensor* sensor);
    static void fieldDestroyedCB(void* data, SoSensor* sensor);

    std::unique_ptr<SoFieldSensor> m_fieldSensor;
    QPointer<QFrame> m_container;
};
