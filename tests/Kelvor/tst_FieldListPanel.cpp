#include "Models/FieldListModel.h"
#include "Models/FieldListPanel.h"
#include "Models/FieldListView.h"

#include "TestMain.h"

#include <KlvExtender/KlvContainerRef.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/engines/SoCalculator.h>
#include <Inventor/engines/SoCounter.h>

/// The panel on a small scene, used with mouse and keys.
class tst_FieldListPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_root = sceneOf("Separator { DEF Gold Material { transparency 0.5 ambientColor [] }"
                         " DEF Box Cube { width 3 height = Calculator { a 4 expression \"oa = a\" } . oa }"
                         " DEF Slab Cube { width = USE Box . width }"
                         " Text2 { string = USE Box . width } }");
        m_root->ref();
        m_gold = static_cast<SoMaterial*>(m_root->getChild(0));
        m_box = static_cast<SoCube*>(m_root->getChild(1));
        m_slab = static_cast<SoCube*>(m_root->getChild(2));
        m_panel = std::make_unique<FieldListPanel>();
        m_panel->resize(460, 500);
        m_panel->show();
        m_view = named<FieldListView>("Fields");
        m_pins = named<FieldListView>("Pinned fields");
        m_line = m_panel->findChild<QLineEdit*>();
        QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
        m_panel->setFocus();
        m_services->setSelectedNode(m_gold);
    }

    void cleanup()
    {
        m_services->setSelectedNode(nullptr);
        m_services->getUndoStack()->clear();
        m_panel.reset();
        m_root->unref();
    }

    void fieldsAndSelectionGoTogether()
    {
        m_services->setSelectedNode(m_box);
        QCOMPARE(names(), QString("width height depth"));
        QVERIFY(!m_view->currentIndex().isValid() && !m_services->getSelectedField());
        click(m_view, "height");
        QCOMPARE(m_services->getSelectedField(), &m_box->height);
        m_services->setSelectedField(&m_box->depth);
        QCOMPARE(m_view->currentField(), &m_box->depth);
        m_view->setCurrentIndex(m_view->model()->index(0, FieldListModel::ValueColumn));
        QTest::keyClick(m_view, Qt::Key_D); // names are looked for, whatever column was clicked
        QCOMPARE(m_services->getSelectedField(), &m_box->depth);
        m_services->setSelectedField(&m_slab->depth);
        QCOMPARE(m_view->currentField(), &m_slab->depth);
        m_root->removeChild(m_slab); // deletes it, but for the selection
        QTRY_VERIFY(names().isEmpty() && !m_services->getSelectedField());
    }

    void filters_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("listed");
        const auto row = [](const char* name, const char* typed, const char* listed) {
            QTest::newRow(name) << QString(typed) << QString(listed);
        };
        row("name, any case", "COLOR", "ambientColor diffuseColor specularColor emissiveColor");
        row("value", "0.5", "transparency");
        row("type and state", " default  mffloat ", "shininess");
        row("nothing has all words", "trans color", "");
    }

    void filters()
    {
        QFETCH(QString, typed);
        QFETCH(QString, listed);
        const int all = m_view->model()->rowCount();
        QTest::keyClick(m_view, Qt::Key_Slash);
        QVERIFY(m_line->hasFocus());
        QTest::keyClicks(m_line, typed);
        QCOMPARE(names(), listed);
        QVERIFY2(hint()->text().startsWith(QString::number(all - m_view->model()->rowCount())),
                 qPrintable(hint()->text()));
        m_services->setSelectedNode(m_box);
        QCOMPARE(m_line->text(), typed);
        QTest::keyClick(m_line, Qt::Key_Escape);
        QVERIFY(names() == "width height depth" && !hint()->isVisible());
        QTest::keyClick(m_line, Qt::Key_Escape);
        QVERIFY(m_view->hasFocus());
    }

    void filterAndSelection()
    {
        click(m_view, "shininess");
        QTest::keyClick(m_view, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(m_line, "trans");
        QCOMPARE(names(), QString("shininess transparency")); // what is selected is never hidden
        QCOMPARE(m_view->currentField(), &m_gold->shininess);
        m_services->setSelectedField(&m_gold->diffuseColor);
        QCOMPARE(m_view->currentField(), &m_gold->diffuseColor);
        m_services->setSelectedField(nullptr);
        QTest::keyClicks(m_line, "p");
        QTest::keyClick(m_line, Qt::Key_Down);
        QCOMPARE(m_services->getSelectedField(), &m_gold->transparency);
        QTest::mouseClick(named("Show all"), Qt::LeftButton);
        QVERIFY(m_line->text().isEmpty() && !hint()->isVisible());
    }

    void filterFollowsValues()
    {
        QTest::keyClicks(m_line, "0.75");
        QSignalSpy inserted(m_view->model(), &QAbstractItemModel::rowsInserted);
        for (int i = 0; i < 30; ++i) {
            m_gold->transparency = i % 2 ? 0.75F : 0.5F;
            processSensors();
            QTest::qWait(5);
        }
        QVERIFY(inserted.size() <= 1);
        QTRY_COMPARE(names(), QString("transparency"));
    }

    void switches()
    {
        QTest::mouseClick(named("Only set fields"), Qt::LeftButton);
        QCOMPARE(names(), QString("ambientColor transparency"));
        m_services->setSelectedNode(m_slab);
        QCOMPARE(names(), QString("width"));
        QTest::mouseClick(named("Only set fields"), Qt::LeftButton);
        QTest::mouseClick(named("Only changed fields"), Qt::LeftButton);
        QCOMPARE(names(), QString());
        m_services->setSelectedField(&m_slab->depth);
        paste("5");
        m_services->setSelectedField(nullptr);
        QTRY_COMPARE(names(), QString("depth"));
    }

    void triggersAreFired()
    {
        auto* counter = new SoCounter;
        const KlvContainerRef kept(counter);
        SoSFShort count;
        count.connectFrom(&counter->output);
        m_services->setSelectedField(&counter->trigger);
        QTest::keyClick(m_view, Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(count.getValue(), 1);
    }

    void valuesKeepRoomInNarrowLists()
    {
        const QHeaderView* header = m_view->header();
        for (const int width : {250, 400, 700}) {
            m_panel->resize(width, 500);
            QCOMPARE(header->length(), header->width());
            QVERIFY(header->sectionSize(FieldListModel::ValueColumn) > width / 4);
            QCOMPARE(header->isSectionHidden(FieldListModel::TypeColumn), width < 500);
        }
    }

    void copies()
    {
        click(m_view, "transparency");
        m_gold->transparency.setNum(100000);
        QCOMPARE(copied(m_view, Qt::ControlModifier).size(), textOf(m_gold->transparency).size());
        QCOMPARE(copied(m_view, Qt::ControlModifier | Qt::ShiftModifier), QString("transparency"));
    }

    void pastes_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("value"); // null: not taken
        const auto row = [](const char* name, const char* field, const char* text, const char* value) {
            QTest::newRow(name) << QByteArray(field) << QString::fromUtf8(text) << QByteArray(value);
        };
        row("list", "Material.shininess", "[1, 2]", "[ 1, 2 ]");
        row("as copied", "Label.label", "\"a b\"", "\"a b\"");
        row("string from elsewhere", "WWWInline.name", "say \"hi\"\\", "\"say \\\"hi\\\"\\\"");
        row("lines", "Text2.string", "a\\\r\nb\n", "[ \"a\\\",\n    \"b\" ]");
        row("junk", "Cube.width", "0.5 apples", nullptr);
        row("nothing", "Cube.width", "", nullptr);
    }

    void pastes()
    {
        QFETCH(QByteArray, field);
        QFETCH(QString, text);
        QFETCH(QByteArray, value);
        const QByteArrayList names = field.split('.');
        auto* node = static_cast<SoNode*>(SoType::fromName(names[0].constData()).createInstance());
        m_root->addChild(node);
        SoField* pasted = node->getField(names[1].constData());
        const QByteArray before = textOf(*pasted);
        m_services->setSelectedField(pasted);
        QSignalSpy problem(m_panel.get(), &FieldListPanel::problem);
        const PostedErrors<SoReadError> errors;
        paste(text);
        QCOMPARE(textOf(*pasted), value.isNull() ? before : value);
        QCOMPARE(problem.size(), value.isNull() ? 1 : 0);
        QCOMPARE(m_services->getUndoStack()->count(), value.isNull() ? 0 : 1);
        m_services->getUndoStack()->undo();
        QVERIFY(textOf(*pasted) == before && pasted->isDefault());
        m_services->getUndoStack()->redo();
        QCOMPARE(textOf(*pasted), value.isNull() ? before : value);
    }

    void followsConnections()
    {
        m_services->setSelectedField(&m_slab->width);
        QSignalSpy problem(m_panel.get(), &FieldListPanel::problem);
        paste("9");
        QVERIFY(problem.size() == 1 && m_slab->width.getValue() == 3);
        QTest::keyClick(m_view, Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(m_services->getSelectedField(), &m_box->width);
        QMenu* menu = targetsMenu();
        QVERIFY(menu && menu->actions().size() == 2); // one of them is converted
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(m_services->getSelectedField(), &static_cast<SoText2*>(m_root->getChild(3))->string);
        QTest::keyClick(m_view, Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(m_services->getSelectedField(), &m_box->width);
        m_root->removeChild(m_slab); // was visited before: no way back to it
        QTest::keyClick(m_view, Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(m_services->getSelectedField(), &m_box->width);
        m_services->setSelectedField(&m_box->height);
        QTest::keyClick(m_view, Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(m_services->getSelectedNode()->isOfType(SoCalculator::getClassTypeId()));
    }

    void pins()
    {
        const QString place("Separator › 3: Cube \"Slab\"");
        QVERIFY(!m_pins->isVisible());
        m_panel->setRoot(m_root);
        click(m_view, "transparency");
        QTest::keyClick(m_view, Qt::Key_D, Qt::ControlModifier);
        m_services->setSelectedField(&m_slab->depth);
        QTest::keyClick(m_view, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(names(m_pins), QString("Gold.transparency Slab.depth"));
        QVERIFY(m_pins->isVisible() && m_pins->currentField() == &m_slab->depth);
        QVERIFY(m_pins->currentIndex().data(Qt::ToolTipRole).toString().endsWith(place));

        click(m_pins, "Gold.transparency");
        QCOMPARE(m_view->currentField(), &m_gold->transparency);
        QSignalSpy activated(m_panel.get(), &FieldListPanel::fieldActivated);
        QTest::keyClick(m_pins, Qt::Key_Return);
        QCOMPARE(activated.size(), 1);
        QTest::keyClick(m_pins, Qt::Key_Delete);
        QCOMPARE(names(m_pins), QString("Slab.depth"));
        QVERIFY(m_services->getSelectedField() == &m_gold->transparency && !m_pins->currentField());

        QTest::mouseClick(named("Pinned (1)"), Qt::LeftButton);
        QVERIFY(!m_pins->isVisible());
        QTest::mouseClick(named("Pinned (1)"), Qt::LeftButton);
        m_root->removeChild(m_slab);
        QTRY_VERIFY(names(m_pins).isEmpty() && !m_pins->isVisible());
        QTest::keyClick(m_view, Qt::Key_D, Qt::ControlModifier);
        m_panel->setRoot(nullptr);
        QVERIFY(names(m_pins).isEmpty());
    }

private:
    template <class Widget = QToolButton>
    Widget* named(const QString& name) const
    {
        for (Widget* widget : m_panel->findChildren<Widget*>())
            if (widget->accessibleName() == name || widget->property("text") == name)
                return widget;
        return nullptr;
    }
    QLabel* hint() const { return m_panel->findChildren<QLabel*>().last(); }
    QString names() const { return names(m_view); }
    static QString names(const FieldListView* view)
    {
        QStringList names;
        for (int row = 0; row < view->model()->rowCount(); ++row)
            names += view->model()->index(row, FieldListModel::NameColumn).data().toString();
        return names.join(QLatin1Char(' '));
    }
    static void click(FieldListView* view, const QString& name)
    {
        const auto found = view->model()->match(view->model()->index(0, 0), Qt::DisplayRole, name);
        QCOMPARE(found.size(), 1);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(found.first()).center());
    }
    static QString copied(QWidget* widget, Qt::KeyboardModifiers modifiers)
    {
        QTest::keyClick(widget, Qt::Key_C, modifiers);
        return QGuiApplication::clipboard()->text();
    }
    QMenu* targetsMenu()
    {
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
        QTest::keyClick(m_view, Qt::Key_Down, Qt::AltModifier);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
    void paste(const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(m_view, Qt::Key_V, Qt::ControlModifier);
    }

    KlvServices* m_services = KlvServices::getInstance();
    SoSeparator* m_root;
    SoMaterial* m_gold;
    SoCube* m_box;
    SoCube* m_slab;
    std::unique_ptr<FieldListPanel> m_panel;
    FieldListView* m_view;
    FieldListView* m_pins;
    QLineEdit* m_line;
};

KLV_TEST_MAIN(tst_FieldListPanel)
#include "tst_FieldListPanel.moc"
