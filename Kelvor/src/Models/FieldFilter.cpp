#include "Models/FieldFilter.h"

#include "Models/FieldListModel.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/fields/SoField.h>

#include <algorithm>

FieldFilter::FieldFilter(FieldListModel* fields, QObject* parent)
    : QSortFilterProxyModel(parent)
    , m_fields(fields)
{
    setDynamicSortFilter(false);
    setSourceModel(fields);
    m_filterAgain.setSingleShot(true);
    m_filterAgain.setInterval(250);
    connect(&m_filterAgain, &QTimer::timeout, this, [this] { invalidateFilter(); });
    connect(fields, &FieldListModel::dataChanged, this, [this] {
        if (filters() && !m_filterAgain.isActive())
            m_filterAgain.start();
    });
}

void FieldFilter::setText(const QString& text)
{
    m_words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

void FieldFilter::setOnlySet(bool only)
{
    m_onlySet = only;
    invalidateFilter();
}

void FieldFilter::setOnlyChanged(bool only)
{
    m_onlyChanged = only;
    invalidateFilter();
}

void FieldFilter::keep(const SoField* field)
{
    m_kept = field;
    const QModelIndex row = m_fields->indexOf(field);
    if (row.isValid() && !mapFromSource(row).isValid())
        invalidateFilter();
}

int FieldFilter::hiddenCount() const
{
    return m_fields->rowCount() - rowCount();
}

bool FieldFilter::filters() const
{
    return !m_words.isEmpty() || m_onlySet || m_onlyChanged;
}

bool FieldFilter::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    const SoField* field = m_fields->field(m_fields->index(row, 0, parent));
    // The selected field is what the editor shows and what keys act on: it never goes out of sight.
    if (!filters() || !field || field == m_kept)
        return true;
    if (m_onlySet && field->isDefault() && !field->isConnected())
        return false;
    if (m_onlyChanged && !KlvServices::getInstance()->getChanges()->isChanged(field))
        return false;
    QString text;
    for (int column = 0; !m_words.isEmpty() && column < FieldListModel::ColumnCount; ++column)
        text += m_fields->index(row, column).data().toString() + QLatin1Char('\n');
    return std::all_of(m_words.begin(), m_words.end(),
                       [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}
