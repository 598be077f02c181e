#include "EditorInput.h"

#include "Models/DockReveal.h"

#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvPluginsManager.h>

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QWidget>

namespace {

QWidget* inputOf(const QWidget& editor)
{
    QWidget* other = nullptr;
    for (QWidget* input : editor.findChildren<QWidget*>()) {
        if (!input->isVisible() || !input->isEnabled() || !(input->focusPolicy() & Qt::TabFocus))
            continue;
        if (!qobject_cast<QAbstractButton*>(input) && !qobject_cast<QAbstractSlider*>(input))
            return input;
        if (!other)
            other = input;
    }
    return other;
}

} // namespace

void enterEditorOf(const SoField* field)
{
    for (KlvExtension* extension : KlvPluginsManager::getInstance()->getExtensions()) {
        const auto* editor = qobject_cast<KlvEditor*>(extension);
        if (!field || !editor || !editor->isActive() || editor->getEditedObject().toField() != field)
            continue;
        QWidget* widget = editor->getWidget();
        revealInDock(widget);
        if (QWidget* input = inputOf(*widget)) {
            input->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}
