#include "OffscreenInspector.h"

class tst_DockFit : public QObject
{
    Q_OBJECT

    OffscreenInspector m_inspector;
    QMainWindow* m_window = m_inspector.window.get();
    QDockWidget* m_dock = m_window->findChild<QDockWidget*>("KlvFieldEditorDockWin");

    int heightFor(SoField& field)
    {
        m_inspector.show(&field);
        return m_dock->height();
    }
    /// Moves the separator above the dock by some pixels.
    void drag(int down)
    {
        QPointF place(m_dock->geometry().center().x(), m_dock->geometry().top() - 2);
        const auto send = [&](QEvent::Type type, Qt::MouseButton button) {
            QMouseEvent event(type, place, m_window->mapToGlobal(place), button, Qt::LeftButton,
                              Qt::NoModifier);
            QApplication::sendEvent(m_window, &event);
            m_inspector.settle();
        };
        send(QEvent::MouseButtonPress, Qt::LeftButton);
        place.ry() += down;
        send(QEvent::MouseMove, Qt::NoButton);
        QTest::qWait(50);
        send(QEvent::MouseButtonRelease, Qt::LeftButton);
    }

private Q_SLOTS:
    void heightsFollowTheContent()
    {
        QTest::failOnWarning(unexpectedWarnings());
        auto* root = sceneOf("Separator { Coordinate3 {} Cone {} }");
        root->ref();
        auto& list = static_cast<SoCoordinate3*>(root->getChild(0))->point;
        auto* cone = static_cast<SoCone*>(root->getChild(1));
        m_window->findChild<QDockWidget*>("FieldList")->show();
        m_window->resize(900, 1100);
        const int line = heightFor(cone->height);
        QCOMPARE(line, m_dock->sizeHint().height());
        const int table = heightFor(list);
        QVERIFY2(table > 3 * line, qPrintable(QString::number(table)));
        m_window->resize(900, 1200);
        QCOMPARE(heightFor(cone->height), line);
        drag(-40);
        QCOMPARE(m_dock->height(), line + 40);
        drag(10);
        QCOMPARE(heightFor(list), table);
        drag(30);
        QCOMPARE(heightFor(cone->bottomRadius), line + 30);
        QCOMPARE(heightFor(list), table - 30);
        KlvServices::getInstance()->setSelectedNode(nullptr);
        root->unref();
    }
};

KLV_TEST_MAIN(tst_DockFit)
#include "tst_DockFit.moc"
