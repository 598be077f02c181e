#include "KlvEditorDock.h"

#include <KlvExtender/KlvGuarded.h>
#include <KlvExtender/KlvProfileSetting.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/KlvShell.h>

#include <QScopedValueRollback>

#include <utility>

KlvEditorDock::KlvEditorDock(const QString& title, const char* signal, const char* slot)
    : m_title(title)
    , m_signal(signal)
    , m_slot(slot)
{
    m_author = "QRV";
    m_version = "1.0.0";
}

KlvEditorDock::~KlvEditorDock() = default;

void KlvEditorDock::load()
{
    m_dock = new QDockWidget;
    m_dock->setObjectName(QLatin1String(metaObject()->className()));
    m_dock->setAcceptDrops(false);
    m_dock->setWindowTitle(m_title);
    m_dock->hide();
}

void KlvEditorDock::unload()
{
    releaseEditor();
    delete m_dock;
}

void KlvEditorDock::activate()
{
    KlvExtension::activate();
    connect(KlvServices::getInstance(), m_signal, this, m_slot);
    if (KlvShell* shell = KlvShell::getInstance()) {
        shell->addDockWidget(m_dock, Qt::RightDockWidgetArea);
        shell->extensionActivated(this, 1);
    }
}

void KlvEditorDock::deactivate()
{
    releaseEditor();
    KlvExtension::deactivate();
    disconnect(KlvServices::getInstance(), m_signal, this, m_slot);
    if (KlvShell* shell = KlvShell::getInstance()) {
        shell->removeDockWidget(m_dock);
        shell->extensionDeactivated(this);
    }
}

void KlvEditorDock::show()
{
    KlvExtension::show();
    if (m_dock)
        m_dock->show();
}

void KlvEditorDock::hide()
{
    KlvExtension::hide();
    if (m_dock)
        m_dock->hide();
}

void KlvEditorDock::showEditorFor(SoTypedObject object)
{
    // An editor that is taken away commits what is being typed, and whoever hears of it may select again.
    m_wanted = object;
    if (m_isSwitching)
        return;
    SoTypedObject shown;
    do {
        shown = m_wanted;
        releaseEditor();
        if (m_wanted == shown)
            activateEditorFor(shown);
    } while (m_wanted != shown);
    if (m_editor)
        show();
}

void KlvEditorDock::activateEditorFor(SoTypedObject object)
{
    KlvEditor* editor = object.isNull() || !m_dock ? nullptr : findEditor(object.getTypeId());
    if (!editor)
        return;
    m_editor = editor;
    connect(editor, &KlvEditor::editedObjectLost, this, [this] { showEditorFor(nullptr); });
    connect(editor, &QObject::destroyed, this, &KlvEditorDock::hide);
    // The editor may be another plug-in's.
    const QScopedValueRollback switching(m_isSwitching, true);
    const bool activated = guarded([&] {
        editor->setEditedObject(object);
        m_dock->setWidget(editor->getWidget());
        editor->activate();
    });
    if (!activated)
        releaseEditor();
}

KlvEditor* KlvEditorDock::findEditor(SoType type) const
{
    const KlvProfileSetting* setting = getProfileSetting();
    if (!setting)
        return nullptr;
    KlvEditor* best = nullptr;
    for (KlvExtension* extension : setting->getControlledExtensions()) {
        auto* editor = dynamic_cast<KlvEditor*>(extension);
        if (!editor || !type.isDerivedFrom(editor->getHandledType()))
            continue;
        if (!best || editor->getHandledType().isDerivedFrom(best->getHandledType()))
            best = editor;
    }
    return best;
}

void KlvEditorDock::releaseEditor()
{
    const QPointer<KlvEditor> editor = std::exchange(m_editor, nullptr);
    if (!editor)
        return;
    const QScopedValueRollback switching(m_isSwitching, true);
    editor->disconnect(this);
    guarded([&] { editor->deactivate(); });
    if (editor)
        guarded([&] { editor->setEditedObject(nullptr); });
    if (m_dock)
        m_dock->setWidget(nullptr);
    if (QWidget* widget = editor ? editor->getWidget() : nullptr)
        widget->setParent(nullptr);
    hide();
}
