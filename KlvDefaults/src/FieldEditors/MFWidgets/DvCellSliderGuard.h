#pragma once

#include <QObject>

#include <memory>

class DvMFieldWidget;
class DvSlider;
class SoMField;

/// Makes a slider frame behave as one cell editor: Tab walks through its parts and leaves the cell at either
/// end, the frame closes when the focus leaves all of its parts, and the element can be given back the value
/// that it had when the cell was opened.
class DvCellSliderGuard : public QObject
{
    Q_OBJECT

public:
    /// Guards `slider`, which shows element `row` of the owner's field, for as long as it lives.
    DvCellSliderGuard(DvSlider* slider, DvMFieldWidget* owner, int row);
    ~DvCellSliderGuard() override;

    /// What a key does in the frame as a whole; true when it shall do nothing else. Escape drops what is
    /// entered and puts the element back to the bit if the slider has changed it; keys that would close the
    /// frame do not while the text in it is no value.
    bool handleKey(int key);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void revert();

    DvSlider* m_slider;
    DvMFieldWidget* m_owner;
    int m_row;
    SoMField* m_field;
    std::unique_ptr<SoMField> m_element;
    bool m_wasDefault;
};
