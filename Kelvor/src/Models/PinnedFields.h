#pragma once

#include <KlvExtender/KlvContainerRef.h>

#include <QWidget>

class FieldListModel;
class FieldListView;
class QToolButton;
class SoField;
class SoFieldContainer;
class SoNode;

/// Fields that are kept at hand whichever node is selected, in a list that can be folded. As high as its
/// rows, up to some; hidden while nothing is pinned. Pinned fields are not kept alive.
class PinnedFields : public QWidget
{
    Q_OBJECT

public:
    explicit PinnedFields(QWidget* parent = nullptr);

    FieldListView* view() const { return m_view; }

    bool isPinned(const SoField* field) const;
    /// Pins a field, which must be in a container, or takes it away again.
    void toggle(SoField* field);
    /// Unpins all and tells the places of fields that are pinned from now on below a root, which is
    /// referenced; null if there is none.
    void setRoot(SoNode* root);

protected:
    void changeEvent(QEvent* event) override;

private:
    void fit();
    QString placeText(SoFieldContainer* container) const;

    KlvContainerRef m_root;
    FieldListModel* m_model;
    QToolButton* m_header;
    FieldListView* m_view;
    bool m_folded = false;
};
