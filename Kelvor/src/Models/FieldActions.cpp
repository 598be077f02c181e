#include "Models/FieldActions.h"

#include "Changes/SceneCode.h"
#include "Models/FieldListModel.h"
#include "Models/FieldListView.h"
#include "Models/FieldTextCommand.h"
#include "Models/FieldTrail.h"
#include "Models/PinnedFields.h"

#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/fields/SoSFTrigger.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QScopeGuard>

namespace {

/// A value may be as large as a scene, and take seconds to be printed or read.
[[nodiscard]] auto waitCursor()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    return qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
}

QString shortened(const QString& text)
{
    constexpr qsizetype longest = 40;
    const QString line = text.left(4 * longest).simplified();
    return line.size() > longest ? line.left(longest - 1) + QChar(0x2026) : line;
}

QString escaped(QString menuText)
{
    return menuText.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString keysOf(const QAction* action)
{
    return QLatin1Char('\t') + action->shortcut().toString(QKeySequence::NativeText);
}

bool isTrigger(const SoField& field)
{
    return field.isOfType(SoSFTrigger::getClassTypeId());
}

void copy(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace

FieldActions::FieldActions(FieldListView* view, PinnedFields* pins, FieldTrail* trail,
                           const QList<QKeySequence>& pinKeys, QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_pins(pins)
    , m_trail(trail)
{
    add(tr("Copy Value"), {QKeySequence::Copy}, &FieldActions::copyValue);
    add(tr("Copy Name"), {Qt::CTRL | Qt::SHIFT | Qt::Key_C}, &FieldActions::copyName);
    add(tr("Copy as C++"), {Qt::CTRL | Qt::ALT | Qt::Key_C}, &FieldActions::copyCode);
    add(tr("Paste Value"), {QKeySequence::Paste}, &FieldActions::paste);
    m_trigger = add(tr("Trigger"), {Qt::CTRL | Qt::Key_T}, &FieldActions::trigger);
    m_pin = add(tr("Pin"), pinKeys, &FieldActions::togglePin);
    addDirection(tr("Go to Source"), {Qt::ALT | Qt::Key_Right, Qt::CTRL | Qt::Key_Return},
                 tr("%1 is not connected from anything."), fieldSources);
    addDirection(tr("Go to Targets"), {Qt::ALT | Qt::Key_Down}, tr("Nothing is connected from %1."),
                 fieldTargets);
    m_back = view->addListAction(tr("Back"), {Qt::ALT | Qt::Key_Left});
    connect(m_back, &QAction::triggered, trail, &FieldTrail::back);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view, &QWidget::customContextMenuRequested, this, &FieldActions::showMenu);
}

QAction* FieldActions::add(const QString& text, const QList<QKeySequence>& keys, Act act)
{
    QAction* action = m_view->addListAction(text, keys);
    m_acts += action;
    connect(action, &QAction::triggered, this, [this, act] {
        if (SoField* field = m_view->currentField())
            (this->*act)(*field);
    });
    return action;
}

void FieldActions::addDirection(const QString& text, const QList<QKeySequence>& keys, const QString& none,
                                QList<FieldLink> (*links)(const SoField&))
{
    const Direction direction{links, none, m_view->addListAction(text, keys)};
    connect(direction.action, &QAction::triggered, this, [this, direction] { follow(direction); });
    m_directions += direction;
}

void FieldActions::follow(const Direction& direction)
{
    SoField* field = m_view->currentField();
    if (!field)
        return;
    const QList<FieldLink> links = direction.links(*field);
    if (links.isEmpty()) {
        Q_EMIT problem(direction.none.arg(fieldLabel(*field)));
    } else if (links.size() == 1) {
        select(links.constFirst());
    } else {
        auto* menu = new QMenu(m_view);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        addLinks(menu, direction, links, QStringLiteral("%1"));
        menu->popup(m_view->viewport()->mapToGlobal(m_view->visualRect(m_view->currentIndex()).bottomLeft()));
    }
}

void FieldActions::select(const FieldLink& link)
{
    if (link.field)
        KlvServices::getInstance()->setSelectedField(link.field);
    else
        KlvServices::getInstance()->setSelectedNode(link.container);
}

void FieldActions::addLinks(QMenu* menu, const Direction& direction, const QList<FieldLink>& links,
                            const QString& text)
{
    for (const FieldLink& link : links) {
        menu->addAction(text.arg(escaped(link.label)), this, [this, link, ofCurrent = direction.links] {
            // The scene may have changed while the menu was open.
            const SoField* field = m_view->currentField();
            if (field && ofCurrent(*field).contains(link))
                select(link);
        });
    }
}

void FieldActions::showMenu(const QPoint& position)
{
    SoField* field = m_view->currentField();
    if (!field)
        return;
    auto* menu = new QMenu(m_view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(m_acts);
    if (!isTrigger(*field))
        menu->removeAction(m_trigger);
    m_pin->setText(m_pins->isPinned(field) ? tr("Unpin") : tr("Pin"));
    menu->addSeparator();
    for (const Direction& direction : m_directions) {
        const QList<FieldLink> links = direction.links(*field);
        const QString name = direction.action->text();
        if (links.isEmpty())
            menu->addAction(name + keysOf(direction.action))->setEnabled(false);
        else if (links.size() == 1)
            addLinks(menu, direction, links, name + QLatin1String(": %1") + keysOf(direction.action));
        else
            addLinks(menu->addMenu(name), direction, links, QStringLiteral("%1"));
    }
    if (const SoField* previous = m_trail->previous())
        menu->addAction(tr("Back to %1").arg(escaped(fieldLabel(*previous))) + keysOf(m_back), m_trail,
                        &FieldTrail::back);
    menu->popup(m_view->viewport()->mapToGlobal(position));
}

void FieldActions::copyValue(SoField& field)
{
    const auto waiting = waitCursor();
    copy(FieldTextCommand::textOf(field));
}

void FieldActions::copyName(SoField&)
{
    copy(m_view->currentIndex().siblingAtColumn(FieldListModel::NameColumn).data().toString());
}

void FieldActions::copyCode(SoField& field)
{
    const auto waiting = waitCursor();
    copy(SceneCode::cppStatement(field));
}

void FieldActions::paste(SoField& field)
{
    const QString text = QGuiApplication::clipboard()->text();
    const auto waiting = waitCursor();
    if (text.isEmpty())
        Q_EMIT problem(tr("The clipboard holds no text."));
    else if (field.isConnected() && field.isConnectionEnabled())
        Q_EMIT problem(tr("%1 is connected and would not keep the value.").arg(fieldLabel(field)));
    else if (!FieldTextCommand::paste(field, text))
        Q_EMIT problem(tr("%1 does not take “%2”.").arg(fieldLabel(field), shortened(text)));
}

void FieldActions::trigger(SoField& field)
{
    if (isTrigger(field))
        field.touch();
    else
        Q_EMIT problem(tr("%1 is no trigger.").arg(fieldLabel(field)));
}

void FieldActions::togglePin(SoField& field)
{
    m_pins->toggle(&field);
}
