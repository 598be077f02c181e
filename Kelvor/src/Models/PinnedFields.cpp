#include "Models/PinnedFields.h"

#include "Models/FieldListModel.h"
#include "Models/FieldListView.h"
#include "Models/SceneChildren.h"
#include "Models/SceneSearch.h"

#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/nodes/SoNode.h>

#include <QEvent>
#include <QHeaderView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int mostRows = 8;
constexpr qsizetype searchLimit = 200'000; // a tenth of a second

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
    m_model->setPlaceText([this](SoFieldContainer* container) { return placeText(container); });
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

void PinnedFields::setRoot(SoNode* root)
{
    m_model->setContainer(nullptr);
    m_root = KlvContainerRef(root);
}

/// Fields of nodes without a name look alike: `Separator › 3: Group › 1: Material`, with each node's number
/// among the children.
QString PinnedFields::placeText(SoFieldContainer* container) const
{
    auto* root = static_cast<SoNode*>(m_root.get());
    SceneSearch search(SceneSearch::Visits::EachNode, searchLimit);
    const auto path = search.find(root, [container](const SoNode* node) { return node == container; });
    if (!path)
        return QString();
    const SoNode* node = root;
    QStringList labels{objectLabel(root)};
    for (const int child : *path) {
        node = SceneChildren::at(node, child);
        labels += QStringLiteral("%1: %2").arg(child + 1).arg(objectLabel(node));
    }
    return labels.join(QStringLiteral(" › "));
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
