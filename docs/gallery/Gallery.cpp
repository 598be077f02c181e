#include "Gallery.h"

#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvPlugin.h>
#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/SoPath.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/lists/SoPathList.h>
#include <Inventor/nodes/SoNode.h>

#include <QGridLayout>
#include <QLabel>

namespace {

/// The width of a row, about that of a dock.
constexpr int rowWidth = 440;
/// The height of a row with a table, enough for some elements.
constexpr int tableHeight = 130;

SoFieldList fieldsOf(SoNode* scene)
{
    SoSearchAction search;
    search.setType(SoNode::getClassTypeId());
    search.setInterest(SoSearchAction::ALL);
    search.apply(scene);
    SoFieldList fields;
    for (int i = 0; i < search.getPaths().getLength(); ++i) {
        SoFieldList own;
        search.getPaths()[i]->getTail()->getFields(own);
        for (int j = 0; j < own.getLength(); ++j)
            fields.append(own[j]);
    }
    return fields;
}

} // namespace

Gallery::Gallery(const KlvPlugin& plugin, SoNode* scene)
{
    for (KlvExtension* extension : plugin.getExtensions()) {
        auto* editor = dynamic_cast<KlvEditor*>(extension);
        if (editor && editor->getHandledType().isDerivedFrom(SoField::getClassTypeId()))
            m_editors.append(editor);
    }
    const SoFieldList fields = fieldsOf(scene);
    for (int i = 0; i < fields.getLength(); ++i) {
        KlvEditor* best = nullptr;
        for (KlvEditor* editor : m_editors) {
            const SoType kind = editor->getHandledType();
            if (fields[i]->isOfType(kind) && (!best || kind.isDerivedFrom(best->getHandledType())))
                best = editor;
        }
        if (best && (!m_fields.contains(best) || (m_fields[best]->isDefault() && !fields[i]->isDefault())))
            m_fields[best] = fields[i];
    }
}

QStringList Gallery::missing() const
{
    QStringList names;
    for (KlvEditor* editor : m_editors) {
        if (!m_fields.contains(editor))
            names += QString::fromUtf8(editor->metaObject()->className());
    }
    return names;
}

QImage Gallery::paint() const
{
    QWidget sheet;
    auto* rows = new QGridLayout(&sheet);
    rows->setVerticalSpacing(0);
    for (KlvEditor* editor : m_editors) {
        SoField* field = m_fields.value(editor);
        if (!field)
            continue;
        editor->setEditedObject(field);
        const int row = rows->rowCount();
        rows->addWidget(new QLabel(fieldLabel(*field)), row, 0);
        rows->addWidget(editor->getWidget(), row, 1);
        editor->getWidget()->setFixedWidth(rowWidth);
        if (field->isOfType(SoMField::getClassTypeId()))
            editor->getWidget()->setFixedHeight(tableHeight);
        editor->activate();
    }
    // Larger than a screen, as it may be.
    sheet.resize(sheet.sizeHint());
    const QImage image = sheet.grab().toImage();
    for (KlvEditor* editor : m_fields.keys()) {
        editor->deactivate();
        editor->setEditedObject(nullptr);
        editor->getWidget()->setParent(nullptr);
    }
    return image;
}
