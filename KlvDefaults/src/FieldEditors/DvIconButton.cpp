#include "FieldEditors/DvIconButton.h"

#include "FieldEditors/klsettings_fieldEditor.h"

#include <QAction>
#include <QEvent>
#include <QPainter>

DvIconButton::DvIconButton(const char* name, const QPixmap& icon, const QKeySequence& shortcut,
                           QWidget* container)
    : QPushButton(container)
    , m_action(new QAction(icon, QString(), this))
{
    setObjectName(QString::fromUtf8(name));
    setMaximumSize(klsettings_fieldEditor(QStringLiteral("buttonWidth")),
                   klsettings_fieldEditor(QStringLiteral("buttonHeight")));
    setIcon(icon);
    setFocusPolicy(Qt::NoFocus);
    m_action->setShortcut(shortcut);
    m_action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_action->setShortcutVisibleInContextMenu(true);
    connect(m_action, SIGNAL(triggered()), this, SLOT(click()));
    container->addAction(m_action);
    container->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void DvIconButton::setToggling()
{
    // A frame this small hardly shows whether it is pressed.
    const QPixmap on = icon().pixmap(icon().availableSizes().constFirst());
    QPixmap off(on.size());
    off.fill(Qt::transparent);
    QPainter painter(&off);
    painter.setOpacity(0.4);
    painter.drawPixmap(0, 0, on);
    QIcon icon;
    icon.addPixmap(off, QIcon::Normal, QIcon::Off);
    icon.addPixmap(on, QIcon::Normal, QIcon::On);
    setIcon(icon);
    setCheckable(true);
    m_action->setIcon(icon);
    m_action->setCheckable(true);
    connect(this, SIGNAL(toggled(bool)), m_action, SLOT(setChecked(bool)));
}

bool DvIconButton::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTipChange) {
        setAccessibleName(toolTip());
        m_action->setText(toolTip());
    }
    return QPushButton::event(event);
}
