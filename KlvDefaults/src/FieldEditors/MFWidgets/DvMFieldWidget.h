#pragma once

#include "FieldEditors/KlvFieldEditors.h"

#include <QPixmap>

#include <memory>

class AccessButtonPrivate;
class DvMFieldTable;
class QAction;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class SoFieldSensor;
class SoMField;

/// Base of the editors of multi-value fields: a label that names the kind, a row of buttons with the quick
/// access to rows and the number of elements, and the table of the elements.
///
/// A subclass says which fields it edits and how the text of a cell becomes an element and the other way
/// round.
class DvMFieldWidget : public KlvFieldEditors
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvMFieldWidget".
    explicit DvMFieldWidget(const char* name);
    /// The same, with a table for colors if `tableType` is 1.
    DvMFieldWidget(int tableType, const char* name);

    /// Builds the widgets. Called again it builds them anew, also after their frame was destroyed.
    void load() override;
    /// Takes a field that `checkField()` accepts; another one is watched, but the field that was edited
    /// before stays the edited one. Null lets go of it.
    void setField(SoField* field) override;
    /// Shows the number of elements and the ignored flag and has the visible cells painted again. Does
    /// nothing while refreshing is off.
    void refresh() override;
    void setRefresh(bool on) override;
    void swapRows(int, int) override {}
    void swapColumns(int, int) override {}
    void set1Value(int, int, QString) override {}
    void setValue(int, const void*) override {}
    void applyChanges() override {}

    /// The text of a cell, as it is edited; empty where there is no element.
    virtual QString getFieldValue(int row, int column) const;
    /// The alignment of the cells' text.
    virtual int getTextFlags();
    /// True for fields that this editor edits.
    virtual bool checkField(SoField* field);

    ~DvMFieldWidget() override;

    /// Makes the label and has it name the kind of field. The label never changes once it has a text.
    void setFieldName(const QString& kind);
    /// Shows the number of elements.
    void updateNumElementLabel();

    /// The edited field; null when there is none.
    SoMField* getField() const { return m_field; }
    /// The quick access to the table's rows; null before `load()`.
    AccessButtonPrivate* getAccessBox() const { return m_accessBox; }

public Q_SLOTS:
    /// Sets the texts of the buttons in the present language.
    virtual void languageChange();
    /// Gives the field the ignored flag that the button shows.
    void ignoreButtonStateChanged();
    /// Resets the field to its default.
    virtual void setDefaultFieldValue();

public:
    /// The text that a cell shows, which may be a shorter one than is edited.
    virtual QString getShownText(int row, int column) const;

protected:
    AccessButtonPrivate* m_accessBox = nullptr;
    QPushButton* m_upButton = nullptr;
    QPushButton* m_downButton = nullptr;
    QPushButton* m_defaultButton = nullptr;
    QPushButton* m_ignoreButton = nullptr;
    QPushButton* m_deleteButton = nullptr;
    QPushButton* m_addButton = nullptr;
    QLabel* m_label = nullptr;
    QLabel* m_labelNumElement = nullptr;
    DvMFieldTable* m_table = nullptr;
    SoMField* m_field = nullptr;
    QGridLayout* m_globalLayout = nullptr;
    QHBoxLayout* m_buttonsLayout = nullptr;
    QHBoxLayout* m_manageButtonsLayout = nullptr;

private:
    void makeTable();
    void clear();
    void buildButtonRow();
    QHBoxLayout* addButtonPair(const char* name, QPushButton* left, QPushButton* right);
    void editField(SoMField* field);
    void watchEditedField();

    QPixmap m_deleteIcon;
    QPixmap m_addIcon;
    QPixmap m_upIcon;
    QPixmap m_downIcon;
    QPixmap m_defaultIcon;
    QPixmap m_ignoreIcon;
    const int m_tableType;
    bool m_refreshOn = true;
    QAction* m_copyAction = nullptr;
    QAction* m_pasteAction = nullptr;
    /// Tells when the edited field goes while the editor's own sensor watches one that was not accepted.
    std::unique_ptr<SoFieldSensor> m_otherFieldSensor;
};
