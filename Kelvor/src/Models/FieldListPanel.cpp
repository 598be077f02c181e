#include "Models/FieldListPanel.h"

#include "Models/FieldActions.h"
#include "Models/FieldColumns.h"
#include "Models/FieldFilter.h"
#include "Models/FieldFilterBar.h"
#include "Models/FieldListModel.h"
#include "Models/FieldListView.h"
#include "Models/FieldTrail.h"
#include "Models/PinnedFields.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/fields/SoFieldContainer.h>

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QUndoStack>
#include <QVBoxLayout>

FieldListPanel::FieldListPanel(QWidget* parent)
    : QWidget(parent)
    , m_model(new FieldListModel(this))
    , m_filter(new FieldFilter(m_model, this))
    , m_trail(new FieldTrail(this))
    , m_pins(new PinnedFields(this))
    , m_title(new QLabel(this))
    , m_bar(new FieldFilterBar(m_filter, this))
    , m_view(new FieldListView(m_model, m_filter, this))
    , m_hint(new QWidget(this))
    , m_hintText(new QLabel(m_hint))
{
    m_title->setTextFormat(Qt::PlainText);
    m_title->setContentsMargins(6, 4, 6, 2);
    m_title->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_hintText->setWordWrap(true);
    auto* showAll = new QToolButton(m_hint);
    showAll->setText(tr("Show all"));
    auto* hintLayout = new QHBoxLayout(m_hint);
    hintLayout->setContentsMargins(6, 2, 4, 2);
    hintLayout->addWidget(m_hintText, 1);
    hintLayout->addWidget(showAll);

    m_view->setAccessibleName(tr("Fields"));
    new FieldColumns(m_view);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (QWidget* part : std::initializer_list<QWidget*>{m_pins, m_title, m_bar, m_view, m_hint})
        layout->addWidget(part);
    layout->setStretchFactor(m_view, 1);
    setFocusProxy(m_view);
    addKeys(m_view, {Qt::CTRL | Qt::Key_D});
    addKeys(m_pins->view(), {Qt::CTRL | Qt::Key_D, Qt::Key_Delete});

    connect(m_bar, &FieldFilterBar::entered, this, &FieldListPanel::enterList);
    connect(m_bar, &FieldFilterBar::left, m_view, qOverload<>(&QWidget::setFocus));
    connect(showAll, &QToolButton::clicked, m_bar, &FieldFilterBar::showAll);
    connect(m_filter, &FieldFilter::rowsInserted, this, &FieldListPanel::updateHint);
    connect(m_filter, &FieldFilter::rowsRemoved, this, &FieldListPanel::updateHint);
    connect(m_filter, &FieldFilter::modelReset, this, &FieldListPanel::updateHint);

    KlvServices* services = KlvServices::getInstance();
    connect(services, &KlvServices::selectedNodeChanged, this, &FieldListPanel::showContainer);
    connect(services, &KlvServices::selectedFieldChanged, this, &FieldListPanel::follow);
    connect(services->getUndoStack(), &QUndoStack::indexChanged, m_model, &FieldListModel::refreshStates);
    connect(services->getChanges(), &KlvChanges::changed, m_model, &FieldListModel::refreshStates);
    showContainer(services->getSelectedNode());
    follow(services->getSelectedField());
}

void FieldListPanel::addKeys(FieldListView* view, const QList<QKeySequence>& pinKeys)
{
    const auto* actions = new FieldActions(view, m_pins, m_trail, pinKeys, this);
    connect(actions, &FieldActions::problem, this, &FieldListPanel::problem);
    const QAction* find =
        view->addListAction(tr("Filter"), {QKeySequence::Find, Qt::Key_Slash, Qt::SHIFT | Qt::Key_Slash});
    connect(find, &QAction::triggered, m_bar, &FieldFilterBar::start);
    connect(view, &QAbstractItemView::activated, this, &FieldListPanel::fieldActivated);
}

void FieldListPanel::setRoot(SoNode* root)
{
    m_pins->setRoot(root);
    m_trail->clear();
}

void FieldListPanel::enterList()
{
    m_view->setFocus();
    if (!m_view->currentIndex().isValid())
        m_view->setCurrentIndex(m_filter->index(0, FieldListModel::NameColumn));
}

void FieldListPanel::showContainer(SoFieldContainer* container)
{
    m_title->setText(container ? objectLabel(container) : tr("Nothing is selected."));
    m_model->setContainer(container);
}

void FieldListPanel::follow(SoField* field)
{
    m_filter->keep(field);
    m_view->follow(field);
}

void FieldListPanel::updateHint()
{
    const int hidden = m_filter->hiddenCount();
    m_hint->setVisible(hidden > 0);
    m_hintText->setText(hidden == 1 ? tr("1 field is hidden by the filter.")
                                    : tr("%1 fields are hidden by the filter.").arg(hidden));
}
