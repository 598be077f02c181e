#include "Changes/ChangesPanel.h"

#include "NoteCommand.h"
#include "TestMain.h"

#include <KlvExtender/KlvChanges.h>

class tst_ChangesPanel : public QObject
{
    Q_OBJECT

    KlvServices* m_services = KlvServices::getInstance();
    SoSeparator* m_root = nullptr;
    SoMaterial* m_gold = nullptr;
    SoCone* m_cone = nullptr;
    std::unique_ptr<ChangesPanel> m_panel;
    QTreeView* m_view = nullptr;

    void edit(SoField* field, const char* text)
    {
        ::edit(field, [&] { field->set(text); });
    }
    QStringList row(int row) const
    {
        QStringList texts;
        for (int column = 0; column < m_view->model()->columnCount(); ++column)
            texts += m_view->model()->index(row, column).data().toString();
        return texts;
    }
    void click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPoint place = m_view->visualRect(m_view->model()->index(row, 1)).center();
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, modifiers, place);
    }
    QToolButton* button(const char* text) const
    {
        for (QToolButton* button : m_panel->findChildren<QToolButton*>())
            if (button->text() == QLatin1String(text))
                return button;
        return nullptr;
    }
    void press(const char* text) { QTest::mouseClick(button(text), Qt::LeftButton); }
    QString copied(Qt::KeyboardModifiers modifiers)
    {
        QGuiApplication::clipboard()->clear();
        QTest::keyClick(m_view, Qt::Key_C, modifiers);
        return QGuiApplication::clipboard()->text();
    }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_root = sceneOf("Separator { Group { DEF Gold Material {} } Cone {} }");
        m_root->ref();
        m_gold = static_cast<SoMaterial*>(static_cast<SoGroup*>(m_root->getChild(0))->getChild(0));
        m_cone = static_cast<SoCone*>(m_root->getChild(1));
        m_panel = std::make_unique<ChangesPanel>();
        m_panel->setRoot(m_root);
        m_view = m_panel->findChild<QTreeView*>();
        m_panel->resize(600, 300);
        m_panel->show();
        m_panel->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
        QVERIFY(m_panel->findChild<QLabel*>()->isVisible() && !button("Revert All")->isEnabled());

        edit(&m_gold->transparency, "0.5");
        edit(&m_cone->height, "3");
        edit(&m_gold->shininess, "0.2"); // what it was, but set
        QTRY_COMPARE(m_panel->count(), 3);
        QVERIFY(m_view->isVisible() && button("Revert All")->isEnabled());
        m_view->setFocus();
    }

    void cleanup()
    {
        m_panel.reset();
        m_services->setSelectedNode(nullptr);
        m_services->getUndoStack()->clear();
        m_services->getChanges()->restart();
        m_root->unref();
    }

    void rowsTellWhatHasBeenChanged()
    {
        const QString gold = "Material \"Gold\"";
        const QModelIndex place = m_view->model()->index(0, 0);
        QTRY_COMPARE(place.data(Qt::ToolTipRole).toString(), "Separator › Group › " + gold);
        QCOMPARE(row(0), QStringList({gold, "transparency", "0", "0.5"}));
        QCOMPARE(row(1), QStringList({"Cone", "height", "2", "3"}));
        QCOMPARE(row(2), QStringList({gold, "shininess", "0.2 (default)", "0.2"}));
        QSignalSpy refreshed(m_view->model(), &QAbstractItemModel::dataChanged);
        m_cone->height.setValue(4); // by the application
        processSensors();
        QTRY_VERIFY(refreshed.count() > 0);
        QCOMPARE(row(1).constLast(), QString("4"));
        m_cone->height.setIgnored(TRUE);
        QCOMPARE(row(1).mid(2), QStringList({"2 (not ignored)", "4 (ignored)"}));
    }

    void rowsAreReverted()
    {
        QSignalSpy counted(m_panel.get(), &ChangesPanel::countChanged);
        QSignalSpy problem(m_panel.get(), &ChangesPanel::problem);
        QVERIFY(!button("Revert")->isEnabled());
        click(0);
        click(2, Qt::ControlModifier);
        QTest::keyClick(m_view, Qt::Key_Delete);
        QTRY_COMPARE(counted.isEmpty() ? -1 : counted.constLast().constFirst().toInt(), 1);
        QCOMPARE(row(0).at(1), QString("height"));
        QVERIFY(m_gold->transparency[0] == 0 && m_gold->shininess.isDefault());
        m_services->getUndoStack()->undo();
        QTRY_COMPARE(m_panel->count(), 3);
        QCOMPARE(row(0).at(1), QString("transparency")); // at its place again

        m_cone->bottomRadius.setValue(5);
        NoteCommand::push(&m_cone->bottomRadius); // too late for a copy
        QTRY_COMPARE(m_panel->count(), 4);
        QCOMPARE(row(3).mid(2), QStringList({"not known", "5"}));
        press("Revert All");
        QTRY_COMPARE(m_panel->count(), 1);
        QCOMPARE(problem.count(), 1);
        m_services->getChanges()->restart();
        m_panel->setRoot(nullptr);
        QCOMPARE(m_panel->count(), 0); // none is looked for in another scene
    }

    void aHiddenListKeepsStill()
    {
        m_panel->hide();
        QSignalSpy refreshed(m_view->model(), &QAbstractItemModel::dataChanged);
        m_cone->height.setValue(4);
        m_root->insertChild(new SoSeparator, 0);
        QTest::qWait(300);
        QCOMPARE(refreshed.count(), 0);
        m_root->removeChild(m_root->getChild(2)); // the cone
        m_panel->show();
        QTRY_COMPARE(row(1).at(0), QString("Cone"));
        QVERIFY(refreshed.count() > 0);
    }

    void rowsAreSelectedAndCopied()
    {
        QVERIFY(copied(Qt::ControlModifier).contains("height 3")); // all where none is selected
        click(1);
        QTest::keyClick(m_view, Qt::Key_Up);
        QCOMPARE(m_services->getSelectedField(), &m_cone->height);
        QTest::keyClick(m_view, Qt::Key_Return);
        QCOMPARE(m_services->getSelectedField(), &m_gold->transparency);
        QVERIFY(copied(Qt::ControlModifier).endsWith("DEF Gold Material {\n    transparency 0.5\n}\n"));
        click(1);
        const QString code = copied(Qt::ControlModifier | Qt::AltModifier);
        QCOMPARE(code, QString("// Separator › Cone\n"
                               "auto* cone = static_cast<SoCone*>((*root->getChildren())[1]);\n"
                               "cone->height.setValue(3.0f);\n"));
        press("Copy as Inventor");
        QVERIFY(QGuiApplication::clipboard()->text().startsWith("# Separator › Cone\nCone {"));
        m_view->actions().constLast()->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("Separator › Cone"));
    }

    void removedNodesAreMarked()
    {
        const auto isMarked = [this](int row) {
            return m_view->model()->index(row, 0).data(Qt::FontRole).value<QFont>().italic();
        };
        QVERIFY(!isMarked(1));
        m_cone->ref();
        m_root->removeChild(m_cone);
        m_cone->unref();
        QTRY_VERIFY(isMarked(1) && !isMarked(0));
        QVERIFY(m_view->model()->index(1, 0).data(Qt::ToolTipRole).toString().contains("no longer"));
        click(1);
        QVERIFY(copied(Qt::ControlModifier).contains("height 3"));
        m_root->insertChild(m_cone, 0);
        QTRY_VERIFY(!isMarked(1));
        const QString place = m_view->model()->index(0, 0).data(Qt::ToolTipRole).toString();
        QCOMPARE(place, QString("Separator › Group › Material \"Gold\"")); // at another index
    }
};

KLV_TEST_MAIN(tst_ChangesPanel)
#include "tst_ChangesPanel.moc"
