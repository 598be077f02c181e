#include "Scene/SensorPump.h"
#include "TestMain.h"
#include "View/GeometryCheck.h"
#include "View/SceneView.h"

#include <KlvExtender/SceneGraph/SoFieldText.h>

namespace {

const char* const square = "Coordinate3 { point [ 0 0 0, 1 0 0, 0 1 0, 1 1 0 ] } ";
const char* const corners = "coord VRMLCoordinate { point [ 0 0 0, 1 0 0, 0 1 0, 1 1 0 ] } ";
const char* const textured = "Texture2 { image 1 1 3 0xff } TextureCoordinate2 { point 0 0 } ";

/// A list of one number, some thousand times.
QByteArray many(const char* number, int count)
{
    return " [ " + QByteArray(number).append(", ").repeated(count) + " ] ";
}

} // namespace

class tst_GeometryCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void cleanup()
    {
        m_view.reset();
        m_root->unref();
    }

    /// Where a fault is expected, Coin ends the process without the check.
    void drawsWhatCoinSurvives_data()
    {
        QTest::addColumn<QByteArray>("scene");
        QTest::addColumn<QString>("fault"); // none when empty
        const auto row = [](const QByteArray& scene, const char* fault = "") {
            QTest::addRow("%d: %.60s", ++m_rows, scene.constData()) << scene << QString::fromLatin1(fault);
        };
        const QByteArray homogeneous = "Coordinate4 { point" + many("0 0 0 1", 400000) + "} ";
        row("FaceSet {}");
        row(square + QByteArray("FaceSet {}"));
        row(square + QByteArray("FaceSet { startIndex 1 numVertices 3 }"));
        row(square + QByteArray("FaceSet { numVertices 0 }"));
        row(square + QByteArray("FaceSet { numVertices [ 4, 0 ] }"),
            "FaceSet has 0 vertices for a face or strip that needs 3");
        row(square + QByteArray("DEF Roof FaceSet { numVertices [ 4, 1000000, -1000000 ] }"),
            "FaceSet \"Roof\" takes 1000004 vertices and has 4");
        row(square + QByteArray("FaceSet { startIndex -2000000 numVertices 3 }"),
            "FaceSet starts at vertex -2000000");
        row("Coordinate3 { point [ 0 0 0, 1 0 0 ] } FaceSet {}",
            "FaceSet has 2 vertices for a face or strip that needs 3");
        row("FaceSet { vertexProperty VertexProperty { vertex [ 0 0 0, 1 0 0, 0 1 0 ] } }");
        row(square + QByteArray("FaceSet { vertexProperty Cube {} }"), "FaceSet has Cube as vertexProperty");
        row(square + QByteArray("LineSet { numVertices [ 0, 1, 3 ] }"));
        row(square + QByteArray("LineSet { numVertices 9999999 }"),
            "LineSet takes 9999999 vertices and has 4");
        row(square + QByteArray("PointSet { startIndex 4 }"));
        row(square + QByteArray("PointSet { numPoints 9999999 }"),
            "PointSet takes 9999999 vertices and has 4");
        row(square + QByteArray("MarkerSet { markerIndex [ -1, 3 ] }"));
        row(square + QByteArray("MarkerSet { markerIndex 99999999 }"), "MarkerSet has no marker 99999999");
        row(square + QByteArray("QuadMesh {}"));
        row(square + QByteArray("QuadMesh { verticesPerRow 2 verticesPerColumn 2 }"));
        row(square + QByteArray("QuadMesh { verticesPerRow 4 verticesPerColumn 1073741825 }"),
            "QuadMesh takes 4294967300 vertices and has 4");
        row(homogeneous + "QuadMesh { verticesPerRow 2 verticesPerColumn 200000 }",
            "QuadMesh needs normals for vertices with four coordinates");
        row(square + QByteArray("TriangleStripSet { numVertices 4 }"));
        row(square + QByteArray("TriangleStripSet { numVertices [ 3, -1 ] }"),
            "TriangleStripSet has -1 vertices for a face or strip that needs 3");
        row(square + QByteArray("IndexedFaceSet {}"));
        row(square + QByteArray("IndexedFaceSet { coordIndex [ 0, 1, -1, 1, 3, 2 ] }"));
        row(square + QByteArray("IndexedFaceSet { coordIndex [ 0, 1, 9999999 ] }"),
            "IndexedFaceSet has 9999999 in coordIndex, and the last of its vertices is 3");
        row(homogeneous + "IndexedFaceSet { coordIndex [ 0, 1, 399999 ] }",
            "IndexedFaceSet needs normals for vertices with four coordinates");
        row(square + QByteArray("Normal { vector 0 0 1 } IndexedFaceSet { coordIndex [ 0, 1, 3, 2, -1 ] }"));
        row(square +
                QByteArray("Normal { vector 0 0 1 } "
                           "IndexedFaceSet { coordIndex [ 0, 1, 2, -1 ] normalIndex [ 0, 9999999, 0 ] }"),
            "IndexedFaceSet has 9999999 in normalIndex, and the last of its normals is 0");
        // Coin makes the face convex by these indices.
        row(square +
                QByteArray(
                    "ShapeHints { faceType UNKNOWN_FACE_TYPE } "
                    "NormalBinding { value PER_VERTEX } Normal { vector [ 0 0 1, 0 0 1, 0 0 1, 0 0 1 ] } "
                    "IndexedFaceSet { coordIndex [ 0, 1, 3, 2, -1 ] normalIndex [ 0, 9999999, 0, 0 ] }"),
            "IndexedFaceSet has 9999999 in normalIndex, and the last of its normals is 3");
        row(square + QByteArray("MaterialBinding { value PER_FACE } "
                                "IndexedFaceSet { coordIndex [ 0, 1, 2, -1, 1, 2, 3, -1 ] }"));
        row(square +
                QByteArray(
                    "MaterialBinding { value PER_FACE_INDEXED } IndexedFaceSet { coordIndex [ 0, 1, 2 ] }"),
            "IndexedFaceSet needs indices in materialIndex");
        row(textured + QByteArray(square) + "IndexedFaceSet { coordIndex [ 0, 1, 2, -1 ] }");
        row(textured + QByteArray(square) +
                "IndexedFaceSet { coordIndex [ 0, 1, 2, -1 ] textureCoordIndex [ 0, 0, 99999999 ] }",
            "IndexedFaceSet has 99999999 in textureCoordIndex, and the last of its texture coordinates is 0");
        row("TextureCoordinate2 { point 0 0 } " + QByteArray(square) +
            "IndexedFaceSet { coordIndex [ 0, 1, 2, -1 ] textureCoordIndex [ 0, 0, 99999999 ] }");
        row(square + QByteArray("IndexedLineSet { coordIndex [ 0, 1, -1, 2, -1 ] }"));
        row(square + QByteArray("IndexedLineSet { coordIndex [ 0, 9999999 ] }"),
            "IndexedLineSet has 9999999 in coordIndex, and the last of its vertices is 3");
        row(square + QByteArray("IndexedPointSet { coordIndex [ 0, 3, -1 ] }"));
        row(square + QByteArray("IndexedPointSet { coordIndex 9999999 }"),
            "IndexedPointSet has 9999999 in coordIndex, and the last of its vertices is 3");
        row(square + QByteArray("IndexedMarkerSet { coordIndex [ 0, 1 ] markerIndex [ 0, -1, 3 ] }"));
        row(square + QByteArray("IndexedMarkerSet { coordIndex 0 markerIndex -9999999 }"),
            "IndexedMarkerSet has no marker -9999999");
        row(square + QByteArray("IndexedTriangleStripSet { coordIndex [ 0, 1, 2, 3, -1 ] }"));
        row(square + QByteArray("IndexedTriangleStripSet { coordIndex [ -1, -1, -1 ] }"),
            "IndexedTriangleStripSet has no vertices between the ends of its strips");
        row(square + QByteArray("NurbsCurve { numControlPoints 4 knotVector [ 0, 0, 0, 0, 1, 1, 1, 1 ] }"));
        row("Coordinate3 { point [] } NurbsCurve {}", "NurbsCurve has 0 control points and 1 knots");
        row(square + QByteArray("IndexedNurbsCurve { numControlPoints 2 coordIndex [ 0, 9999999 ] "
                                "knotVector [ 0, 0, 1, 1 ] }"),
            "IndexedNurbsCurve has 9999999 in coordIndex, and the last of its vertices is 3");
        row(square + QByteArray("NurbsSurface { numUControlPoints 2 numVControlPoints 2 "
                                "uKnotVector [ 0, 0, 1, 1 ] vKnotVector [ 0, 0, 1, 1 ] }"));
        row(square + QByteArray("NurbsSurface { numVControlPoints 3 }"),
            "NurbsSurface has 0 control points and 1 knots");
        row(square + QByteArray("NurbsSurface { numUControlPoints 3000 numVControlPoints 3000 uKnotVector") +
                many("0", 3002) + "vKnotVector" + many("0", 3002) + "}",
            "NurbsSurface takes 9000000 vertices and has 4");
        row(square + QByteArray("IndexedNurbsSurface { numUControlPoints 2 numVControlPoints 2 "
                                "uKnotVector [ 0, 0, 1, 1 ] vKnotVector [ 0, 0, 1, 1 ] coordIndex [ 0, 1, 2, "
                                "9999999 ] }"),
            "IndexedNurbsSurface has 9999999 in coordIndex, and the last of its vertices is 3");
        row("VRMLIndexedFaceSet { " + QByteArray(corners) + "coordIndex [ 0, 1, -1, 0, 1, 2, -1 ] }");
        row("VRMLIndexedFaceSet { coordIndex [ 0, 1, 2, -1 ] }", "VRMLIndexedFaceSet has no vertices");
        row("VRMLIndexedFaceSet { coord Cube {} coordIndex [ 0, 1, 2 ] }",
            "VRMLIndexedFaceSet has Cube as coord");
        row("VRMLIndexedFaceSet { " + QByteArray(corners) + "coordIndex [ 0, 1, 9999999 ] }",
            "VRMLIndexedFaceSet has 9999999 in coordIndex, and the last of its vertices is 3");
        row("VRMLIndexedLineSet { " + QByteArray(corners) + "coordIndex [ 0, 1, 2 ] }");
        row("VRMLIndexedLineSet { " + QByteArray(corners) + "coordIndex 9999999 }",
            "VRMLIndexedLineSet has 9999999 in coordIndex, and the last of its vertices is 3");
        row("VRMLPointSet { " + QByteArray(corners) + "}");
        row("VRMLElevationGrid { xDimension 2 zDimension 2 height [ 0, 1 ] }");
        row("VRMLElevationGrid { xDimension 65536 zDimension 65536 }",
            "VRMLElevationGrid takes 4294967296 heights and has 0");
        row("Switch { whichChild -1 FaceSet { numVertices 99999 } }");
        row("Switch { whichChild 0 FaceSet { numVertices 99999 } }",
            "FaceSet takes 99999 vertices and has 1");
        row("LOD { range 1 Cube {} FaceSet { numVertices 99999 } }",
            "FaceSet takes 99999 vertices and has 1");
        row("SurroundScale {} FaceSet { numVertices 99999 }", "FaceSet takes 99999 vertices and has 1");
    }

    void drawsWhatCoinSurvives()
    {
        QFETCH(QByteArray, scene);
        QFETCH(QString, fault);
        // The cube is there to be picked, and all in the separator with it.
        show("Separator { " + scene + " Cube {} }");
        QCOMPARE(GeometryCheck().fault(m_root), fault);
        m_view->viewActions().viewAll->trigger();
        m_view->setHighlight(QList<int>{0});
        m_view->viewActions().frame->trigger();
        QSignalSpy picked(m_view.get(), &SceneView::picked);
        QSignalSpy pickedNothing(m_view.get(), &SceneView::pickedNothing);
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, QPoint(100, 75));
        QTest::mouseDClick(m_view.get(), Qt::LeftButton, {}, QPoint(100, 75));
        QCOMPARE(m_view->grabFrame().isNull(), !fault.isEmpty());
        QCOMPARE(picked.isEmpty() && pickedNothing.isEmpty(), !fault.isEmpty());
    }

    /// Each change makes the scene impossible to draw, and is taken back.
    void comesBackByItself_data()
    {
        QTest::addColumn<QByteArray>("change"); // a field and its text
        QTest::newRow("shape") << QByteArray("Shape.coordIndex [ 0, 1, 9999999 ]");
        QTest::newRow("vertices before it") << QByteArray("Vertices.point []");
        QTest::newRow("colors") << QByteArray("Colors.diffuseColor 1 0 0");
        QTest::newRow("choice") << QByteArray("Choice.whichChild 0");
    }

    void comesBackByItself()
    {
        QFETCH(QByteArray, change);
        show("Separator { DEF Colors Material { diffuseColor " + many("1 0 0", 2000) +
             "} MaterialBinding { value PER_FACE_INDEXED } DEF Vertices " + square +
             "DEF Shape IndexedFaceSet { coordIndex [ 0, 1, 2, -1 ] materialIndex 1999 }"
             " DEF Choice Switch { FaceSet { numVertices 99999 } } }");
        QVERIFY(!m_view->grabFrame().isNull());
        const int dot = change.indexOf('.');
        const int blank = change.indexOf(' ');
        SoNode* const node = SoNode::getByName(change.left(dot).constData());
        SoField* const field = node->getField(change.mid(dot + 1, blank - dot - 1).constData());
        const QByteArray before = textOf(*field);
        for (const QByteArray& text : {change.mid(blank + 1), before}) {
            QSignalSpy frames(m_view.get(), &SceneView::frameDrawn);
            QVERIFY(setFieldFromText(field, text.constData()));
            QTRY_VERIFY(frames.count() > 0);
            QCOMPARE(m_view->grabFrame().isNull(), text != before);
        }
    }

private:
    void show(const QByteArray& scene)
    {
        m_root = sceneOf(scene);
        m_root->ref();
        m_view = std::make_unique<SceneView>();
        m_view->resize(200, 150);
        QSignalSpy first(m_view.get(), &SceneView::firstFrameDrawn);
        m_view->setRoot(m_root);
        m_view->show();
        QTRY_COMPARE(first.count(), 1);
    }

    static inline int m_rows = 0;
    SensorPump m_pump;
    std::unique_ptr<SceneView> m_view;
    SoSeparator* m_root = nullptr;
};

KLV_TEST_MAIN(tst_GeometryCheck)
#include "tst_GeometryCheck.moc"
