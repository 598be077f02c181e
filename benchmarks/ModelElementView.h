#pragma once

#include "ElementView.h"

#include <QAbstractTableModel>
#include <QTableView>

#include <memory>

/// A table view over a model that reads the field.
class ModelElementView : public ElementView
{
public:
    using ElementView::ElementView;

    void open() override
    {
        m_model = std::make_unique<Model>(field());
        m_table = std::make_unique<QTableView>();
        m_table->resize(440, 600);
        m_table->setModel(m_model.get());
        m_table->show();
        settle();
    }
    void close() override
    {
        m_table.reset();
        m_model.reset();
    }
    void refresh() override
    {
        Q_EMIT m_model->dataChanged(m_model->index(0, 0), m_model->index(m_model->rowCount() - 1, 0));
        settle();
    }
    void edit(int row, const QString& text) override
    {
        field().set1(row, text.toUtf8().constData());
        Q_EMIT m_model->dataChanged(m_model->index(row, 0), m_model->index(row, 0));
        settle();
    }
    void scrollTo(int row) override
    {
        m_table->setCurrentIndex(m_model->index(row, 0));
        settle();
    }
    void add(int row) override
    {
        m_model->insert(row);
        settle();
    }
    void remove(int row) override
    {
        m_model->remove(row);
        settle();
    }
    void move(int row) override
    {
        const float value = field()[row];
        field().set1Value(row, field()[row - 1]);
        field().set1Value(row - 1, value);
        Q_EMIT m_model->dataChanged(m_model->index(row - 1, 0), m_model->index(row, 0));
        settle();
    }

private:
    class Model : public QAbstractTableModel
    {
    public:
        explicit Model(SoMFFloat& field)
            : m_field(field)
        {
        }
        int rowCount(const QModelIndex& parent = {}) const override
        {
            return parent.isValid() ? 0 : m_field.getNum();
        }
        int columnCount(const QModelIndex&) const override { return 1; }
        QVariant data(const QModelIndex& index, int role) const override
        {
            if (role != Qt::DisplayRole)
                return {};
            SbString text;
            m_field.get1(index.row(), text);
            return QString::fromUtf8(text.getString());
        }
        void insert(int row)
        {
            beginInsertRows({}, row, row);
            m_field.insertSpace(row, 1);
            endInsertRows();
        }
        void remove(int row)
        {
            beginRemoveRows({}, row, row);
            m_field.deleteValues(row, 1);
            endRemoveRows();
        }

    private:
        SoMFFloat& m_field;
    };

    std::unique_ptr<Model> m_model;
    std::unique_ptr<QTableView> m_table;
};
