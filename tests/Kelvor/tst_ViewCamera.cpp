#include "TestMain.h"
#include "View/ViewCamera.h"

#include <Inventor/SbXfBox3f.h>

#include <array>
#include <cmath>

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
    void framesTheBox()
    {
        for (int turn = 0; turn < 24; ++turn) {
            const float aspect = std::array{0.4f, 1.0f, 3.0f}[size_t(turn % 3)];
            ViewCamera camera;
            camera.setOrthographic(turn % 2 == 0);
            camera.orbit(float(turn), 0.1f * float(turn) - 1.0f);
            camera.viewAll(OrientedBox(someBox), aspect);
            float widest = 0.0f;
            for (int i = 0; i < 8; ++i) {
                const SbVec3f corner(i & 1 ? -1.0f : 5.0f, i & 2 ? 2.0f : 3.0f, i & 4 ? -3.0f : 4.0f);
                QVERIFY(
                    camera.placement(someBox, aspect).volume.intersect(corner)); // the clipping planes, too
                const SbVec3f screen = seen(camera, corner, aspect);
                widest = std::max({widest, std::abs(screen[0] - 0.5f), std::abs(screen[1] - 0.5f)});
            }
            QVERIFY(widest > 0.4f && widest < 0.5f); // fills the picture, with a little space
        }
    }

    void seesASmallThingInALargeScene()
    {
        const SbBox3f world(SbVec3f(-1e6f, -1e6f, -1e6f), SbVec3f(1e6f, 1e6f, 1e6f));
        ViewCamera camera;
        camera.viewAll(OrientedBox(someBox), 1.0f);
        for (const SbVec3f& corner : OrientedBox(someBox).corners())
            QVERIFY(camera.placement(world, 1.0f).volume.intersect(corner));
    }

    void growsFlatBoxes()
    {
        const SbVec3f corner(1.0f, 2.0f, 3.0f);
        SbMatrix turned;
        turned.setRotate(SbRotation(SbVec3f(1, 1, 0), 1.0f));
        for (const SbVec3f& size : {SbVec3f(2, 0, 4), SbVec3f(0, 0, 5), SbVec3f(0, 0, 0)}) {
            SbXfBox3f flat(corner, corner + size);
            flat.transform(turned);
            for (const SbVec3f& axis : OrientedBox::of(flat)->grownBy(0.5f).halfAxes)
                QVERIFY(axis.length() > 0.49f && axis.length() < 3.1f);
        }
        QVERIFY(!OrientedBox::of(SbXfBox3f()));
        QVERIFY(!OrientedBox::of(SbXfBox3f(corner, SbVec3f(1, 2, 1) * 1e30f)));
    }

    void keepsPointsInPlace()
    {
        const SbVec3f point(4.0f, 2.5f, -2.0f);
        for (const bool orthographic : {false, true}) {
            ViewCamera camera;
            camera.viewAll(OrientedBox(someBox), 1.5f);
            camera.setOrthographic(orthographic);
            const SbVec3f aim = seen(camera, point, 1.5f);
            camera.zoom(0.5f, point);
            QVERIFY(seen(camera, point, 1.5f).equals(aim, 1e-3f));
            for (int i = 0; i < 2000; ++i)
                camera.zoom(i < 1000 ? 0.5f : 3.0f, point); // no underflow, no overflow
            camera.seek(point);
            QVERIFY(seen(camera, point, 1.5f).equals(SbVec3f(0.5f, 0.5f, 0.0f), 1e-3f));
        }
    }

    void staysUpright()
    {
        ViewCamera camera;
        camera.viewAll(OrientedBox(someBox), 1.0f);
        const SbVec3f focus = camera.focalPoint();
        for (int i = 0; i < 400; ++i) {
            camera.orbit(0.13f, i < 200 ? 0.05f : -0.05f);
            SbVec3f up;
            camera.camera()->orientation.getValue().multVec(SbVec3f(0, 1, 0), up);
            QVERIFY(up[1] > 0.0f && camera.focalPoint().equals(focus, 1e-2f));
        }
        QVERIFY(camera.direction()[1] < -0.99f); // looks down from above in the end
    }
};

KLV_TEST_MAIN(tst_ViewCamera)
#include "tst_ViewCamera.moc"
