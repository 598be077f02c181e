#include "KlvEditorDock.h"

#include <KlvExtender/KlvGuarded.h>
#include <KlvExtender/KlvProfileSetting.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/KlvShell.h>

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
    releaseEditor();
    if (object.isNull() || !m_dock)
        return;
    KlvEditor* editor = findEditor(object.getTypeId());
    if (!editor)
        return;
    m_editor = editor;
    // The editor may be another plug-in's.
    const bool activated = guarded([&] {
        editor->setEditedObject(object);
        m_dock->setWidget(editor->getWidget());
        editor->activate();
    });
    if (!activated) {
        releaseEditor();
        return;
    }
    connect(editor, &KlvEditor::editedObjectLost, this, &KlvEditorDock::releaseEditor);
    show();
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
    if (!m_editor)
        return;
    disconnect(m_editor, &KlvEditor::editedObjectLost, this, nullptr);
    guarded([this] { m_editor->deactivate(); });
    guarded([this] { m_editor->setEditedObject(nullptr); });
    if (m_dock)
        m_dock->setWidget(nullptr);
    if (QWidget* widget = m_editor->getWidget())
        widget->setParent(nullptr);
    m_editor = nullptr;
    hide();
}
