#pragma once

#include "FieldEditors/MFWidgets/DvMFieldTable.h"

#include <QItemDelegate>

class QLineEdit;

/// Paints the cells of an element table from the field and edits them: in a line edit with the validator of
/// the cell type, or in a slider frame while values are bounded.
///
/// Return and Tab write what was entered into the field, Escape leaves the element as it was when the editor
/// was opened. What the field does meanwhile never changes what is being entered.
class DvMFieldTableItemDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    DvMFieldTableItemDelegate(DvMFieldWidget* owner, QObject* parent);
    ~DvMFieldTableItemDelegate() override;

    void setCellType(DvMFieldTable::MFTableTypeCell type) { m_cellType = type; }
    void setIntEditorRange(int min, int max);
    void setDoubleEditorRange(double min, double max);
    void setBoundedValue(bool bounded) { m_bounded = bounded; }

    /// A value's text, brought into the range as a slider does with what is typed.
    QString withinBounds(const QString& text) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

    /// Gives a line edit the validator of the cell type.
    virtual void setValidator(QLineEdit* edit) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    DvMFieldWidget* m_owner;
    DvMFieldTable::MFTableTypeCell m_cellType = DvMFieldTable::TextCell;
    int m_intMin = 0;
    int m_intMax = 0;
    double m_doubleMin = 0;
    double m_doubleMax = 0;
    bool m_bounded = false;
};
