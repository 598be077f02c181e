#pragma once

#include <KlvExtender/KlvServices.h>

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoLOD.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QApplication>
#include <QWidget>

/// A window in which the elements of one field are seen and changed. Each operation is over when the change
/// is on the screen.
class ElementView
{
public:
    /// A field of so many elements.
    explicit ElementView(int size)
        : m_node(new SoLOD)
    {
        m_node->ref();
        m_node->range.setNum(size);
        float* values = m_node->range.startEditing();
        for (int i = 0; i < size; ++i)
            values[i] = static_cast<float>(i) / 8;
        m_node->range.finishEditing();
    }
    virtual ~ElementView() { m_node->unref(); }

    ElementView(const ElementView&) = delete;
    ElementView& operator=(const ElementView&) = delete;

    SoMFFloat& field() { return m_node->range; }

    virtual void open() = 0;
    virtual void close() = 0;
    /// Something has changed the field.
    virtual void refresh() = 0;
    virtual void edit(int row, const QString& text) = 0;
    virtual void scrollTo(int row) = 0;
    virtual void add(int row) = 0;
    virtual void remove(int row) = 0;
    /// Moves a row up by one.
    virtual void move(int row) = 0;

    /// Brings the screen up to date.
    static void settle()
    {
        SoDB::getSensorManager()->processDelayQueue(TRUE);
        QApplication::processEvents();
    }

private:
    SoLOD* m_node;
};
