#pragma once

#include "FieldEditors/SFWidgets/DvSFieldWidget.h"

#include <QStringList>

#include <vector>

/// Base of the editors that show the components of a value side by side, each a caption above an input.
///
/// The families below it make the inputs and read and write them; a subclass of theirs says how the
/// components of its kind of field are read and written.
class DvSFColumnsWidget : public DvSFieldWidget
{
    Q_OBJECT

public:
    /// Builds the row, still without columns.
    void load() override;
    /// Sets the captions of the columns, as many as there are.
    void setNameLabels(const QString* names);

    ~DvSFColumnsWidget() override;

protected:
    /// How the columns of a family look: the object names of their parts and the names of the layout
    /// constants.
    struct Look
    {
        const char* layoutName;
        const char* labelName;
        const char* inputName;
        const char* columnSpacing; ///< between caption and input
        const char* rowSpacing;    ///< between the columns
        const char* rowMargin;     ///< around the row
    };

    /// The editor of the fields of a kind, whose name without "So" is given. `name` becomes the object name.
    DvSFColumnsWidget(SoType kind, const char* kindName, const Look& look, const QStringList& captions,
                      const char* name);

    /// Adds a column at the end of the row and gives back its caption.
    QLabel* addColumn(QWidget* input);
    const QStringList& captions() const { return m_captions; }

private:
    Look m_look;
    QStringList m_captions;
    std::vector<QLabel*> m_labels;
};
