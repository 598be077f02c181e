#pragma once

#include "FieldEditors/KlvFieldEditors.h"

#include <Inventor/SbString.h>

#include <QPixmap>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QSpacerItem;

/// Base of the editors of single-value fields: one row with a label that names the kind, a frame for the
/// input widgets, and two buttons that reset the field to its default and toggle its ignored flag.
///
/// A subclass's `load()` calls `setFieldName()` and this class's `load()`, then puts its input widgets into
/// the edition frame and connects them. Its `applyChanges()` writes them into the field and ends with
/// `recordValue()`.
class DvSFieldWidget : public KlvFieldEditors
{
    Q_OBJECT

public:
    /// The slider frame that an editor has as its edition frame.
    enum SFFrameType
    {
        NoFrame,
        FloatFrame,
        DoubleFrame,
        Int32Frame,
        UInt32Frame,
        ShortFrame,
        UShortFrame
    };

    /// `name` becomes the object name; null gives "DvSFieldWidget".
    explicit DvSFieldWidget(const char* name);
    /// The same, with a slider frame as the edition frame.
    DvSFieldWidget(SFFrameType type, const char* name);

    /// Builds the row. Called again it builds it anew, also after its frame was destroyed.
    void load() override;
    void setField(SoField* field) override;
    /// Shows the ignored flag; overrides show the value and then call this one.
    void refresh() override;
    void setRefresh(bool) override {}
    void swapRows(int, int) override {}
    void swapColumns(int, int) override {}
    void set1Value(int, int, QString) override {}
    void setValue(int, const void*) override {}
    /// True when something was entered since the last refresh.
    virtual bool edited();

    ~DvSFieldWidget() override;

    /// Makes the label and has it name the kind of field. The label never changes once it has a text.
    void setFieldName(const QString& kind);

public Q_SLOTS:
    /// Sets the texts of the buttons in the present language.
    virtual void languageChange();
    /// For inputs that commit at once: applies the changes.
    virtual void setCommandValue();
    /// For inputs that are left: applies the changes if something was entered.
    void setFocusLeaveEvent();
    /// Gives the field the ignored flag that the button shows.
    void ignoreButtonStateChanged();
    /// Resets the field to its default.
    virtual void setDefaultFieldValue();
    void applyChanges() override;

protected:
    /// Hands the history a command for the value that was just written into the field.
    void recordValue();
    /// Says that the refresh which is now pending only echoes a change that this editor made itself.
    void expectEcho();
    /// For `refresh()`: true when it is the echo that was expected and the field has not changed since. What
    /// the inputs show then stands, be it another spelling of the value or a text that is still being
    /// entered.
    bool takeEcho();
    /// Has both spacers take the free width, for inputs that do not grow with the row.
    void expandSpacers();

    QLabel* m_label = nullptr;
    QPushButton* m_defaultButton = nullptr;
    QPushButton* m_ignoreButton = nullptr;
    SoField* m_field = nullptr;
    QFrame* m_editionFrame = nullptr;
    QHBoxLayout* m_layout = nullptr;
    QHBoxLayout* m_buttonLayout = nullptr;
    QHBoxLayout* m_editLayout = nullptr;
    QHBoxLayout* m_editionAreaLayout = nullptr;
    QSpacerItem* m_labelSpacer = nullptr;
    QSpacerItem* m_editionSpacer = nullptr;

private:
    void renewWidgets();
    void makeSliderFrame();
    void clear();
    void buildEditionFrame();
    void buildButtons();

    QPixmap m_defaultIcon;
    QPixmap m_ignoreIcon;
    SFFrameType m_frameType = NoFrame;
    SbString m_echoText;
    bool m_echoDue = false;
};
