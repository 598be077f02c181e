#include "Models/FieldColumns.h"

#include "Models/FieldListModel.h"
#include "Models/FieldListView.h"

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>

#include <algorithm>

FieldColumns::FieldColumns(FieldListView* view)
    : QObject(view)
    , m_view(view)
{
    QHeaderView* header = view->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(FieldListModel::ValueColumn, QHeaderView::Stretch);
    connect(header, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (column == FieldListModel::NameColumn && !m_isFitting)
            m_names = width;
    });
    header->installEventFilter(this);
    reset();
}

bool FieldColumns::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        reset();
    else if (event->type() == QEvent::Resize)
        fit();
    return QObject::eventFilter(watched, event);
}

void FieldColumns::reset()
{
    const QFontMetrics metrics = m_view->fontMetrics();
    QFont bold = m_view->font();
    bold.setBold(true);
    const int margins = 2 * metrics.averageCharWidth();
    m_names = QFontMetrics(bold).horizontalAdvance(QStringLiteral("boundingBoxCaching")) + margins;
    m_types = metrics.horizontalAdvance(QStringLiteral("MFColorRGBA")) + margins;
    m_view->header()->resizeSection(FieldListModel::TypeColumn, m_types);
    fit();
}

void FieldColumns::fit()
{
    const QScopedValueRollback fitting(m_isFitting, true);
    QHeaderView* header = m_view->header();
    const QFontMetrics metrics = m_view->fontMetrics();
    const int unit = metrics.averageCharWidth();
    const int states = metrics.horizontalAdvance(tr("default, changed")) + 2 * unit;
    int room = header->width() - 18 * unit;
    const bool showsTypes = room >= m_names + m_types + states;
    header->setSectionHidden(FieldListModel::TypeColumn, !showsTypes);
    if (showsTypes)
        room -= header->sectionSize(FieldListModel::TypeColumn);
    const int names = std::clamp(room - states, std::min(10 * unit, m_names), m_names);
    header->resizeSection(FieldListModel::NameColumn, names);
    header->resizeSection(FieldListModel::StateColumn, std::clamp(room - names, 7 * unit, states));
}
