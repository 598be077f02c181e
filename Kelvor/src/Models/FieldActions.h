#pragma once

#include "Models/FieldConnections.h"

#include <QKeySequence>
#include <QObject>

class FieldListView;
class FieldTrail;
class PinnedFields;
class QAction;
class QMenu;

/// What can be done with the current field of a list, by keys and in the list's context menu: copying and
/// pasting, firing triggers, following connections, going back, pinning.
class FieldActions : public QObject
{
    Q_OBJECT

public:
    /// Adds the actions to `view`; `pinKeys` pin and unpin. Everything given outlives it.
    FieldActions(FieldListView* view, PinnedFields* pins, FieldTrail* trail,
                 const QList<QKeySequence>& pinKeys, QObject* parent = nullptr);

Q_SIGNALS:
    /// Something could not be done: a sentence.
    void problem(const QString& sentence);

private:
    /// One direction along connections.
    struct Direction
    {
        QList<FieldLink> (*links)(const SoField&);
        QString none; // what is said when there are no links
        QAction* action;
    };
    using Act = void (FieldActions::*)(SoField&);

    QAction* add(const QString& text, const QList<QKeySequence>& keys, Act act);
    void addDirection(const QString& text, const QList<QKeySequence>& keys, const QString& none,
                      QList<FieldLink> (*links)(const SoField&));
    void follow(const Direction& direction);
    static void select(const FieldLink& link);
    /// Adds an entry for each link; "%1" in the text is its label.
    void addLinks(QMenu* menu, const Direction& direction, const QList<FieldLink>& links,
                  const QString& text);
    void showMenu(const QPoint& position);

    void copyValue(SoField& field);
    void copyName(SoField& field);
    void copyCode(SoField& field);
    void paste(SoField& field);
    void trigger(SoField& field);
    void togglePin(SoField& field);

    FieldListView* m_view;
    PinnedFields* m_pins;
    FieldTrail* m_trail;
    QList<QAction*> m_acts; // on the current field itself
    QList<Direction> m_directions;
    QAction* m_trigger;
    QAction* m_pin;
    QAction* m_back;
};
