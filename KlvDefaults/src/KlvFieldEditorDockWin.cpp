#include "KlvFieldEditorDockWin.h"

#include <KlvExtender/KlvProfileSetting.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/KlvShell.h>

#include <Inventor/fields/SoField.h>

KlvFieldEditorDockWin::KlvFieldEditorDockWin()
{
    m_author = "QRV";
    m_description = "Field Editor for Kelvor.";
    m_version = "1.0.0";
    m_name = "Field Editor";
}

KlvFieldEditorDockWin::~KlvFieldEditorDockWin() = default;

void KlvFieldEditorDockWin::load()
{
    m_dock = new QDockWidget;
    // The host keeps the window's layout by object name.
    m_dock->setObjectName(QStringLiteral("KlvFieldEditorDockWin"));
    m_dock->setAcceptDrops(false);
    m_dock->setWindowTitle(tr("Field Editor"));
    m_dock->hide();
}

void KlvFieldEditorDockWin::unload()
{
    releaseEditor();
    delete m_dock;
}

void KlvFieldEditorDockWin::activate()
{
    KlvExtension::activate();
    connect(KlvServices::getInstance(), SIGNAL(selectedFieldChanged(SoField*)), this,
            SLOT(s_selectedFieldChanged(SoField*)));
    if (KlvShell* shell = KlvShell::getInstance()) {
        shell->addDockWidget(m_dock, Qt::RightDockWidgetArea);
        shell->extensionActivated(this, 1);
    }
}

void KlvFieldEditorDockWin::deactivate()
{
    releaseEditor();
    KlvExtension::deactivate();
    disconnect(KlvServices::getInstance(), SIGNAL(selectedFieldChanged(SoField*)), this,
               SLOT(s_selectedFieldChanged(SoField*)));
    if (KlvShell* shell = KlvShell::getInstance()) {
        shell->removeDockWidget(m_dock);
        shell->extensionDeactivated(this);
    }
}

void KlvFieldEditorDockWin::show()
{
    KlvExtension::show();
    if (m_dock)
        m_dock->show();
}

void KlvFieldEditorDockWin::hide()
{
    KlvExtension::hide();
    if (m_dock)
        m_dock->hide();
}

void KlvFieldEditorDockWin::s_selectedFieldChanged(SoField* field)
{
    releaseEditor();
    if (!field || !m_dock)
        return;
    KlvEditor* editor = findEditor(field->getTypeId());
    if (!editor)
        return;
    editor->setEditedObject(field);
    m_dock->setWidget(editor->getWidget());
    editor->activate();
    m_editor = editor;
    connect(editor, &KlvEditor::editedObjectLost, this, &KlvFieldEditorDockWin::releaseEditor);
    show();
}

KlvEditor* KlvFieldEditorDockWin::findEditor(SoType type) const
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

void KlvFieldEditorDockWin::releaseEditor()
{
    if (!m_editor)
        return;
    disconnect(m_editor, &KlvEditor::editedObjectLost, this, nullptr);
    m_editor->deactivate();
    m_editor->setEditedObject(nullptr);
    if (m_dock)
        m_dock->setWidget(nullptr);
    if (QWidget* widget = m_editor->getWidget())
        widget->setParent(nullptr);
    m_editor = nullptr;
    hide();
}
