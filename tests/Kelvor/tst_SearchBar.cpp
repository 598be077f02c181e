#include "Models/SceneTreeModel.h"
#include "Models/SceneTreePanel.h"
#include "Models/SceneTreeView.h"
#include "Search/SearchBar.h"

#include "CoinHelpers.h"
#include "TestMain.h"

#include <KlvExtender/KlvServices.h>

#include <Inventor/SbName.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoCube.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QToolButton>

#include <memory>

/// The search line in the panel of the scene tree, used with keys and the mouse.
class tst_SearchBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_root = sceneOf("Separator { DEF A Cube {} DEF Twice Group { DEF B Cube {} Cone {} } USE Twice"
                         " DEF C Cube {} }");
        m_root->ref();
        m_panel = std::make_unique<SceneTreePanel>();
        m_line = m_panel->findChild<QLineEdit*>();
        m_label = m_panel->findChild<SearchBar*>()->findChild<QLabel*>();
        m_view = m_panel->findChild<SceneTreeView*>();
        m_panel->setRoot(m_root);
        m_panel->show();
        m_panel->activateWindow();
        m_panel->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    }

    void cleanup()
    {
        KlvServices::getInstance()->setSelectedNode(nullptr);
        m_panel.reset();
        m_root->unref();
    }

    void typingChoosesTheFirstMatch()
    {
        QTest::keyClick(m_view, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(m_line->hasFocus());
        for (const char key : QByteArray("type:cube")) {
            QTest::keyClick(m_line, key);
            QTest::qWait(30);
        }
        QTRY_COMPARE(m_label->text(), QString("1 of 3"));
        QCOMPARE(selected(), QString("A"));
        QVERIFY(m_line->hasFocus() && m_line->text() == "type:cube");
        QVERIFY(isEmphasized({0}) && isEmphasized({2, 0}) && !isEmphasized({1}));
    }

    void keysGoFromMatchToMatch()
    {
        const struct
        {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers;
            const char* label;
        } rows[] = {
            {Qt::Key_Return, Qt::NoModifier, "2 of 3"}, {Qt::Key_F3, Qt::NoModifier, "3 of 3"},
            {Qt::Key_Down, Qt::NoModifier, "1 of 3"},   {Qt::Key_Up, Qt::NoModifier, "3 of 3"},
            {Qt::Key_F3, Qt::ShiftModifier, "2 of 3"},  {Qt::Key_Return, Qt::ShiftModifier, "1 of 3"}};
        find("type:cube");
        for (const auto& [key, modifiers, label] : rows) {
            QTest::keyClick(m_line, key, modifiers);
            QCOMPARE(m_label->text(), QString(label));
        }
        m_panel->select({1, 1}); // from where somebody went in the tree
        QCOMPARE(m_label->text(), QString("3 matches"));
        QTest::keyClick(m_view, Qt::Key_F3);
        QCOMPARE(selected(), QString("C"));
        for (auto* button : m_panel->findChildren<QToolButton*>()) {
            if (button->accessibleName() == "Previous Match")
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QCOMPARE(selected(), QString("B"));
    }

    void escapeStopsClearsAndLeaves()
    {
        addCubes(300'000);
        QTest::keyClicks(m_line, "name:nothing");
        QTest::keyClick(m_line, Qt::Key_Return);
        QCOMPARE(m_label->text(), QString("Searching…"));
        QTest::keyClick(m_line, Qt::Key_Escape);
        QCOMPARE(m_label->text(), QString("Stopped"));
        QTest::keyClick(m_line, Qt::Key_Escape);
        QVERIFY(m_line->text().isEmpty() && m_label->isHidden());
        QTest::keyClick(m_line, Qt::Key_Escape);
        QVERIFY(m_view->hasFocus());
    }

    void pausesAtManyMatches()
    {
        addCubes(25'000);
        find("type:cube");
        QTRY_COMPARE(m_label->text(), QString("1 of 10,000+"));
        m_panel->select({4, 9'996}); // the last one so far
        QCOMPARE(m_label->text(), QString("10,000 of 10,000+"));
        QTest::keyClick(m_line, Qt::Key_Down);
        QTRY_VERIFY(m_label->text().startsWith("10,001 of 2"));
    }

    void skipsWhatHasGone()
    {
        find("type:cube");
        static_cast<SoGroup*>(m_root->getChild(1))->replaceChild(0, new SoCone);
        QTest::keyClick(m_line, Qt::Key_Return);
        QCOMPARE(selected(), QString("C"));
        m_root->removeAllChildren();
        QCoreApplication::processEvents();
        QTest::keyClick(m_line, Qt::Key_Return); // looks again
        QTRY_COMPARE(m_label->text(), QString("No match"));
        m_root->addChild(new SoCube);
        QTest::keyClick(m_line, Qt::Key_Return);
        QTRY_COMPARE(m_label->text(), QString("1 of 1"));
        m_panel->setRoot(nullptr);
        QTRY_COMPARE(m_label->text(), QString("No match"));
    }

    void saysWhatIsWrong()
    {
        const QColor base = m_line->palette().color(QPalette::Base);
        find("is:chnged");
        QVERIFY(m_label->text().contains("is:changed"));
        QVERIFY(m_line->palette().color(QPalette::Base) != base);
        m_line->clear();
        QCOMPARE(m_line->palette().color(QPalette::Base), base);
    }

    void tellsTheOccurrence()
    {
        using Path = std::optional<QList<int>>;
        QList<Path> told;
        connect(m_panel.get(), &SceneTreePanel::occurrenceChanged, this,
                [&told](const Path& path) { told += path; });
        m_panel->select({2, 0});
        m_root->insertChild(new SoCone, 0);
        m_root->removeChild(1);
        m_root->removeChild(1);
        QCoreApplication::processEvents();
        m_root->removeAllChildren();
        QCoreApplication::processEvents();
        QCOMPARE(told, QList<Path>({Path({2, 0}), Path({1, 0}), Path()}));
    }

private:
    void find(const QString& line)
    {
        m_line->setFocus();
        QTest::keyClicks(m_line, line);
        QTest::keyClick(m_line, Qt::Key_Return); // does not wait for the pause in typing
        QTRY_VERIFY(!m_label->text().isEmpty() && m_label->text() != "Searching…");
    }

    void addCubes(int count)
    {
        auto* group = new SoGroup;
        for (int i = 0; i < count; ++i)
            group->addChild(new SoCube);
        m_root->addChild(group);
        QCoreApplication::processEvents();
    }

    static QString selected()
    {
        const SoFieldContainer* node = KlvServices::getInstance()->getSelectedNode();
        return node ? QString::fromUtf8(node->getName().getString()) : QString();
    }

    bool isEmphasized(const QList<int>& path)
    {
        return m_panel->findChild<SceneTreeModel*>()->indexOf(path).data(Qt::FontRole).value<QFont>().bold();
    }

    SoSeparator* m_root;
    std::unique_ptr<SceneTreePanel> m_panel;
    QLineEdit* m_line;
    QLabel* m_label;
    SceneTreeView* m_view;
};

KLV_TEST_MAIN(tst_SearchBar)
#include "tst_SearchBar.moc"
