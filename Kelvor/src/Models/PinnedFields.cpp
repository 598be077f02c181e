#include "Models/PinnedFields.h"

#include "Models/FieldListModel.h"
#include "Models/FieldListView.h"

#include <KlvExtender/KlvServices.h>

#include <QEvent>
#include <QHeaderView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int mostRows = 8;

} // namespace

PinnedFields::PinnedFields(QWidget* parent)
    : QWidget(parent)
    , m_model(new FieldListModel(this))
    , m_header(new QToolButton(this))
    , m_view(new FieldListView(m_model, m_model, this))
{
    m_header->setAutoRaise(true);
    m_header->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_header->setToolTip(tr("Show or hide the pinned fields"));
    connect(m_header, &QToolButton::clicked, this, [this] {
        m_folded = !m_folded;
        fit();
    });

    m_view->setAccessibleName(tr("Pinned fields"));
    m_view->setHeaderHidden(true);
    m_view->hideColumn(FieldListModel::TypeColumn);
    m_view->hideColumn(FieldListModel::StateColumn);
    m_view->header()->setSectionResizeMode(QHeaderView::Stretch);
    connect(KlvServices::getInstance(), &KlvServices::selectedFieldChanged, m_view, &FieldListView::follow);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    layout->addWidget(m_view);

    connect(m_model, &FieldListModel::rowsInserted, this, &PinnedFields::fit);
    connect(m_model, &FieldListModel::rowsRemoved, this, &PinnedFields::fit);
    connect(m_model, &FieldListModel::modelReset, this, &PinnedFields::fit);
    fit();
}

bool PinnedFields::isPinned(const SoField* field) const
{
    return m_model->indexOf(field).isValid();
}

void PinnedFields::toggle(SoField* field)
{
    if (isPinned(field)) {
        m_model->remove(field);
        return;
    }
    m_model->append(field);
    m_view->follow(KlvServices::getInstance()->getSelectedField());
}

void PinnedFields::clear()
{
    m_model->setContainer(nullptr);
}

void PinnedFields::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fit();
}

void PinnedFields::fit()
{
    const int rows = m_model->rowCount();
    m_header->setText(tr("Pinned (%1)").arg(rows));
    m_header->setArrowType(m_folded ? Qt::RightArrow : Qt::DownArrow);
    m_view->setFixedHeight(std::min(rows, mostRows) * m_view->sizeHintForRow(0) + 2 * m_view->frameWidth());
    m_view->setVisible(!m_folded);
    setVisible(rows > 0);
}
