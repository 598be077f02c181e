#pragma once

#include <QTreeView>

/// A list of rows with columns whose first column is what people type to find a row.
class FieldListView : public QTreeView
{
    Q_OBJECT

public:
    explicit FieldListView(QWidget* parent = nullptr);

    void keyboardSearch(const QString& search) override;
};
