#pragma once

#include "ElementView.h"

#include <QTableWidget>

#include <memory>

/// A plain table widget with an item for each element.
class WidgetElementView : public ElementView
{
public:
    using ElementView::ElementView;

    void open() override
    {
        m_table = std::make_unique<QTableWidget>(field().getNum(), 1);
        m_table->resize(440, 600);
        for (int row = 0; row < m_table->rowCount(); ++row)
            m_table->setItem(row, 0, new QTableWidgetItem(text(row)));
        m_table->show();
        settle();
    }
    void close() override { m_table.reset(); }
    void refresh() override
    {
        for (int row = 0; row < m_table->rowCount(); ++row)
            m_table->item(row, 0)->setText(text(row));
        settle();
    }
    void edit(int row, const QString& text) override
    {
        field().set1(row, text.toUtf8().constData());
        m_table->item(row, 0)->setText(text);
        settle();
    }
    void scrollTo(int row) override
    {
        m_table->setCurrentCell(row, 0);
        settle();
    }
    void add(int row) override
    {
        field().insertSpace(row, 1);
        m_table->insertRow(row);
        m_table->setItem(row, 0, new QTableWidgetItem(text(row)));
        settle();
    }
    void remove(int row) override
    {
        field().deleteValues(row, 1);
        m_table->removeRow(row);
        settle();
    }
    void move(int row) override
    {
        const float value = field()[row];
        field().set1Value(row, field()[row - 1]);
        field().set1Value(row - 1, value);
        m_table->item(row, 0)->setText(text(row));
        m_table->item(row - 1, 0)->setText(text(row - 1));
        settle();
    }

private:
    QString text(int row)
    {
        SbString text;
        field().get1(row, text);
        return QString::fromUtf8(text.getString());
    }

    std::unique_ptr<QTableWidget> m_table;
};
