#pragma once

#include <QFrame>

class KlvFieldEditors;
class QCheckBox;
class QHBoxLayout;
class QLineEdit;
class QSlider;

/// A number as a check box, a slider and a line edit side by side. What is entered goes to the editor that
/// owns the frame.
///
/// While the check box is on (live update) each move of the slider is committed. While it is off the text
/// follows, and the value is committed when the mouse lets go of the slider, and after moves by keys or by
/// the wheel with Return or when the slider is left, as in the line edit. Escape has the owner show its value
/// again in place of what was entered and not committed; in a table it is left to the cell.
///
/// Subclasses keep the value and map it to positions of the slider.
class DvSlider : public QFrame
{
    Q_OBJECT

public:
    /// The integers that a frame can be for.
    enum SliderType
    {
        Int32 = 1,
        UInt32 = 2,
        Int16 = 3,
        UInt16 = 4
    };
    /// What the owner edits: one value, committed with `applyChanges()`, or the elements of a table,
    /// committed with `set1Value()`.
    enum SliderParentType
    {
        SingleValue = 0,
        MultiValue = 1
    };

    /// A frame that commits to `owner`, which must outlive it. Row and column are those of the element in the
    /// owner's table.
    DvSlider(SliderParentType parentType, KlvFieldEditors* owner, QWidget* parent, int row, int column);
    ~DvSlider() override;

    /// Shows a value that is given as text. Nothing is committed.
    virtual void setValue(QString text);
    /// Shows the value in the line edit.
    virtual void updateEdit() = 0;
    /// Takes the value from the line edit.
    virtual void setValueFromEdit() = 0;
    /// Takes the value from a position of the slider.
    virtual void setValueFromSlider(int position) = 0;
    /// Shows the value once more, for what was typed meanwhile.
    virtual void saveDataFromField();

    /// Moves the slider to where the value is, without committing.
    void updateSlider();
    /// The position of the slider.
    int getValue() const;
    /// The line edit's text as it is.
    QString getValueFromEdit() const;
    /// Sets the line edit's text, with the cursor at its start.
    void setText(const QString& text);
    /// The text in the line edit, with "0" or "0x" before the digits in base 8 or 16.
    QString getText() const;
    /// Live update.
    void setChecked(bool checked);
    bool isChecked() const;
    /// True when something was entered that is not committed yet.
    bool isEdited() const;
    /// True when the owner's table has been given a value.
    bool hasWritten() const { return m_written; }

public Q_SLOTS:
    /// Commits what was typed, if anything was.
    void changeValueFromEdit();
    /// Switches live update.
    void eventNotify(bool checked);
    /// The mouse has taken hold of the slider, and has let go of it, which commits.
    void beginCallback();
    void finishCallback();
    /// The slider was moved to a position, by the person or by this frame.
    void valueChangeSlot(int position);
    /// Commits if the slider is held and live update is on.
    void changeValueFromSlider(int position);
    /// Takes and commits the value at a position.
    void changeValueAfterFinish(int position);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Sets the range of positions without committing, and keeps the slider where the value is.
    void setPositions(int minimum, int maximum);
    /// A number's text with the prefix of the base.
    QString withPrefix(QString text) const;
    /// True when the text is but a rounded form of the value, which was shown and not entered. A table, which
    /// gets the text, is not given it then.
    virtual bool isTextRounded() const { return false; }

    QLineEdit* m_lineEdit = nullptr;
    QSlider* m_slider = nullptr;
    /// The position that stands for the value.
    int m_currentPosition = 0;
    /// 10, 8 or 16.
    int m_base = 10;

private:
    void commit();
    bool commitMoves();
    void dropUnacceptableText();

    QHBoxLayout* m_layout = nullptr;
    QCheckBox* m_checkBox = nullptr;
    bool m_liveUpdate = true;
    bool m_sliderInUse = false;
    bool m_sliderSignalsOn = false;
    /// The text shows a move of the slider that is still to be committed.
    bool m_moved = false;
    bool m_written = false;
    SliderParentType m_parentType;
    KlvFieldEditors* m_owner;
    int m_row;
    int m_column;
};
