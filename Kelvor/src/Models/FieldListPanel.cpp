#include "Models/FieldListPanel.h"

#include "Models/FieldListModel.h"
#include "Models/FieldListView.h"
#include "Models/ObjectLabel.h"

#include <KlvExtender/KlvServices.h>

#include <Inventor/fields/SoFieldContainer.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScopedValueRollback>
#include <QUndoStack>
#include <QVBoxLayout>

FieldListPanel::FieldListPanel(QWidget* parent)
    : QWidget(parent)
    , m_model(new FieldListModel(this))
    , m_view(new FieldListView(this))
    , m_title(new QLabel(this))
{
    m_title->setTextFormat(Qt::PlainText);
    m_title->setContentsMargins(6, 4, 6, 2);
    m_title->setTextInteractionFlags(Qt::TextSelectableByMouse);

    m_view->setAccessibleName(tr("Fields"));
    // A field that is destroyed must not make a neighbour the current row; the selection clears itself.
    connect(m_model, &FieldListModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex&, int first, int last) {
                const QModelIndex current = m_view->currentIndex();
                if (current.row() >= first && current.row() <= last)
                    follow(nullptr);
            });
    m_view->setModel(m_model);
    m_view->header()->resizeSection(FieldListModel::NameColumn, 130);
    m_view->header()->resizeSection(FieldListModel::TypeColumn, 90);
    m_view->header()->resizeSection(FieldListModel::StateColumn, 110);
    m_view->header()->setStretchLastSection(false);
    m_view->header()->setSectionResizeMode(FieldListModel::ValueColumn, QHeaderView::Stretch);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
    addActions();

    connect(m_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FieldListPanel::currentRowChanged);
    connect(m_view, &QAbstractItemView::activated, this, &FieldListPanel::fieldActivated);

    KlvServices* services = KlvServices::getInstance();
    connect(services, &KlvServices::selectedNodeChanged, this, &FieldListPanel::showContainer);
    connect(services, &KlvServices::selectedFieldChanged, this, &FieldListPanel::follow);
    connect(services->getUndoStack(), &QUndoStack::indexChanged, m_model, &FieldListModel::refreshStates);
    showContainer(services->getSelectedNode());
    follow(services->getSelectedField());
}

void FieldListPanel::addActions()
{
    const auto add = [this](const QString& text, const QKeySequence& keys, int column) {
        auto* action = new QAction(text, m_view);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, [this, column] { copy(column); });
        m_view->addAction(action);
    };
    add(tr("Copy Value"), QKeySequence::Copy, FieldListModel::ValueColumn);
    add(tr("Copy Name"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, FieldListModel::NameColumn);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void FieldListPanel::showContainer(SoFieldContainer* container)
{
    m_title->setText(container ? objectLabel(container) : tr("Nothing is selected."));
    m_model->setContainer(container);
}

void FieldListPanel::follow(SoField* field)
{
    const QScopedValueRollback following(m_following, true);
    const QModelIndex index = m_model->indexOf(field);
    if (index.isValid() && index.row() == m_view->currentIndex().row())
        return;
    m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                         QItemSelectionModel::Rows);
    if (index.isValid())
        m_view->scrollTo(index);
}

void FieldListPanel::currentRowChanged(const QModelIndex& current)
{
    if (!m_following)
        KlvServices::getInstance()->setSelectedField(m_model->field(current));
}

void FieldListPanel::copy(int column) const
{
    const QModelIndex current = m_view->currentIndex();
    if (current.isValid())
        QGuiApplication::clipboard()->setText(current.siblingAtColumn(column).data().toString());
}
