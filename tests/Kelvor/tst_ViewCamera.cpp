#include "TestMain.h"
#include "View/ClipRange.h"
#include "View/ViewCamera.h"

#include <Inventor/nodes/SoCamera.h>

#include <cmath>
#include <limits>

namespace {

const SbBox3f someBox(SbVec3f(-1.0f, 2.0f, -3.0f), SbVec3f(5.0f, 3.0f, 4.0f));

/// Where a point is in the picture: x and y from 0 to 1.
SbVec3f seen(const ViewCamera& camera, const SbVec3f& point, float aspect)
{
    SbVec3f screen;
    camera.placement(someBox, aspect).volume.projectToScreen(point, screen);
    screen[2] = 0.0f;
    return screen;
}

} // namespace

class tst_ViewCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void framesTheBox_data();
    void framesTheBox();
    void continuesWhereAnotherStands_data() { framesTheBox_data(); }
    void continuesWhereAnotherStands();
    void keepsPointsInPlace();
    void staysUpright();
    void survivesOddScenes_data();
    void survivesOddScenes();
};

void tst_ViewCamera::framesTheBox_data()
{
    QTest::addColumn<bool>("orthographic");
    QTest::addColumn<float>("aspect");
    for (const bool orthographic : {false, true})
        for (const float aspect : {0.4f, 1.0f, 3.0f})
            QTest::addRow("%s %g", orthographic ? "orthographic" : "perspective", aspect) << orthographic << aspect;
}

void tst_ViewCamera::framesTheBox()
{
    QFETCH(bool, orthographic);
    QFETCH(float, aspect);
    for (int turn = 0; turn < 8; ++turn) {
        ViewCamera camera;
        camera.setOrthographic(orthographic);
        camera.orbit(float(turn), 0.3f * float(turn) - 1.0f);
        camera.viewAll(someBox, aspect);
        const SbViewVolume volume = camera.placement(someBox, aspect).volume;
        float widest = 0.0f;
        for (int i = 0; i < 8; ++i) {
            const SbVec3f corner(i & 1 ? -1.0f : 5.0f, i & 2 ? 2.0f : 3.0f, i & 4 ? -3.0f : 4.0f);
            QVERIFY(volume.intersect(corner)); // between the clipping planes, too
            const SbVec3f screen = seen(camera, corner, aspect);
            widest = std::max({widest, std::abs(screen[0] - 0.5f), std::abs(screen[1] - 0.5f)});
        }
        QVERIFY(widest > 0.4f && widest < 0.5f); // fills the picture, with a little space
    }
}

void tst_ViewCamera::continuesWhereAnotherStands()
{
    QFETCH(bool, orthographic);
    QFETCH(float, aspect);
    ViewCamera first;
    first.setOrthographic(orthographic);
    first.orbit(2.0f, 0.2f);
    first.viewAll(someBox, aspect);
    ViewCamera second;
    second.takeOver(first.placement(someBox, aspect).volume, aspect, 3.0f);
    QCOMPARE(second.isOrthographic(), orthographic);
    for (const SbVec3f& point : {SbVec3f(0, 2, 0), SbVec3f(5, 3, 4), SbVec3f(-1, 2, 4)})
        QVERIFY(seen(second, point, aspect).equals(seen(first, point, aspect), 1e-4f));

    const float nan = std::numeric_limits<float>::quiet_NaN();
    SbViewVolume nowhere = first.placement(someBox, aspect).volume;
    nowhere.translateCamera(SbVec3f(nan, 0, 0));
    const SbVec3f position = second.position();
    second.takeOver(nowhere, aspect, 3.0f);
    QCOMPARE(second.position(), position);
}

void tst_ViewCamera::keepsPointsInPlace()
{
    const SbVec3f point(4.0f, 2.5f, -2.0f);
    for (const bool orthographic : {false, true}) {
        ViewCamera camera;
        camera.viewAll(someBox, 1.5f);
        const SbVec3f focus = camera.focalPoint();
        const SbVec3f beside = focus + SbVec3f(camera.direction().cross(SbVec3f(0, 1, 0)));
        const SbVec3f before = seen(camera, beside, 1.5f);
        camera.setOrthographic(orthographic);
        QVERIFY(seen(camera, beside, 1.5f).equals(before, 1e-3f));
        QVERIFY(camera.focalPoint().equals(focus, 1e-3f));

        const SbVec3f aim = seen(camera, point, 1.5f);
        camera.zoom(0.5f, point);
        QVERIFY(seen(camera, point, 1.5f).equals(aim, 1e-3f));
        for (int i = 0; i < 2000; ++i)
            camera.zoom(i < 1000 ? 0.5f : 3.0f, point); // no underflow, no overflow
        QVERIFY(std::isfinite(camera.position().length()));

        camera.seek(point);
        QVERIFY(seen(camera, point, 1.5f).equals(SbVec3f(0.5f, 0.5f, 0.0f), 1e-3f));
    }
}

void tst_ViewCamera::staysUpright()
{
    ViewCamera camera;
    camera.viewAll(someBox, 1.0f);
    const SbVec3f focus = camera.focalPoint();
    for (int i = 0; i < 400; ++i) {
        camera.orbit(0.13f, i < 200 ? 0.05f : -0.05f);
        SbVec3f up;
        SbVec3f side;
        camera.camera()->orientation.getValue().multVec(SbVec3f(0, 1, 0), up);
        camera.camera()->orientation.getValue().multVec(SbVec3f(1, 0, 0), side);
        QVERIFY(up[1] > 0.0f && std::abs(side[1]) < 1e-3f);
        QVERIFY(camera.focalPoint().equals(focus, 1e-2f));
    }
    QVERIFY(camera.direction()[1] < -0.99f); // looks down from above in the end
}

void tst_ViewCamera::survivesOddScenes_data()
{
    QTest::addColumn<SbBox3f>("box");
    QTest::newRow("empty") << SbBox3f();
    QTest::newRow("point") << SbBox3f(1, 1, 1, 1, 1, 1);
    QTest::newRow("flat") << SbBox3f(-1, 0, -1, 1, 0, 1);
    QTest::newRow("tiny") << SbBox3f(-1e-6f, -1e-6f, -1e-6f, 1e-6f, 1e-6f, 1e-6f);
    QTest::newRow("huge") << SbBox3f(-1e14f, -1e14f, -1e14f, 1e14f, 1e14f, 1e14f);
    QTest::newRow("far away") << SbBox3f(1e6f, 1e6f, 1e6f, 1e6f + 1, 1e6f + 1, 1e6f + 1);
}

void tst_ViewCamera::survivesOddScenes()
{
    QFETCH(SbBox3f, box);
    for (const bool orthographic : {false, true}) {
        ViewCamera camera;
        camera.setOrthographic(orthographic);
        camera.viewAll(box, 1.5f);
        const CameraPlacement placement = camera.placement(box, 1.5f);
        const float nearest = placement.volume.getNearDist();
        QVERIFY(ClipRange({nearest, nearest + placement.volume.getDepth()})
                    .isUsable(placement.volume.getProjectionType()));
        QVERIFY(std::isfinite(placement.projection.det4()));
        QVERIFY(box.isEmpty() || placement.volume.intersect(box.getCenter()));
    }
}

Q_DECLARE_METATYPE(SbBox3f)
KLV_TEST_MAIN(tst_ViewCamera)
#include "tst_ViewCamera.moc"
