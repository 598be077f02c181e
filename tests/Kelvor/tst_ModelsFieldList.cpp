#include "Models/FieldListModel.h"
#include "Models/FieldPreview.h"

#include "TestMain.h"

#include <Inventor/SoPath.h>
#include <Inventor/engines/SoCalculator.h>
#include <Inventor/engines/SoElapsedTime.h>
#include <Inventor/fields/SoFields.h>
#include <Inventor/fields/SoSFImage3.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTransform.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QAbstractItemModelTester>
#include <QFont>
#include <QSignalSpy>

#include <functional>
#include <memory>

class tst_ModelsFieldList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }
    void previews_data();
    void previews();
    void listsStates();
    void followsItsFields();
    void losesDestroyedFields();

private:
    static QString text(const FieldListModel& model, const char* field, FieldListModel::Column column);
};

using MakeField = std::function<SoField*()>;

/// A field that `fill` gives a value.
template <typename Field, typename Fill>
MakeField filled(Fill fill)
{
    return [fill] {
        auto* field = new Field;
        fill(*field);
        return static_cast<SoField*>(field);
    };
}

template <typename Field>
MakeField fromText(const char* text)
{
    return filled<Field>([text](Field& field) { field.set(text); });
}

void tst_ModelsFieldList::previews_data()
{
    QTest::addColumn<MakeField>("make");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* expected, const MakeField& make) {
        QTest::newRow(name) << make << QString::fromUtf8(expected);
    };
    row("vector", "1 2.5 -3", fromText<SoSFVec3f>("1 2.5 -3"));
    row("matrix in one line", "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1",
        filled<SoSFMatrix>([](SoSFMatrix& field) { field = SbMatrix::identity(); }));
    row("few vectors", "2 values: 1 2 3, 4 5 6", fromText<SoMFVec3f>("[1 2 3, 4 5 6]"));
    row("many numbers", "10000000 values: 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, …",
        filled<SoMFInt32>([](SoMFInt32& field) {
            field.setNum(10000000);
            for (int i = 0; i < 20; ++i)
                field.set1Value(i, 5);
        }));
    row("nothing", "no values", filled<SoMFFloat>([](SoMFFloat& field) { field.setNum(0); }));
    row("string", "\"a⏎b c\"", filled<SoSFString>([](SoSFString& field) { field = "a\r\nb\tc"; }));
    row("empty string", "\"\"", filled<SoSFString>([](SoSFString& field) { field = ""; }));
    row("strings", "2 values: \"ä\", \"\"", filled<SoMFString>([](SoMFString& field) {
            field.set1Value(0, "ä");
            field.set1Value(1, "");
        }));
    const QByteArray faces = QByteArray("\U0001F642").repeated(1000000);
    QTest::newRow("long string, cut between characters")
        << filled<SoSFString>([faces](SoSFString& field) { field = faces.constData(); })
        << QLatin1Char('"') + QString::fromUtf8("\U0001F642").repeated(49) + QChar(0x2026);
    row("node", "Cube \"Box\"", filled<SoSFNode>([](SoSFNode& field) {
            field = new SoCube;
            field.getValue()->setName("Box");
        }));
    row("no node", "none", filled<SoSFNode>([](SoSFNode&) {}));
    row("nodes", "2 values: Cube, none", filled<SoMFNode>([](SoMFNode& field) {
            field.set1Value(0, new SoCube);
            field.set1Value(1, static_cast<SoNode*>(nullptr));
        }));
    row("engine", "Calculator", filled<SoSFEngine>([](SoSFEngine& field) { field = new SoCalculator; }));
    row("path", "path of 2 nodes", filled<SoSFPath>([](SoSFPath& field) {
            auto* root = new SoSeparator;
            root->addChild(new SoCube);
            auto* path = new SoPath(root);
            path->append(0);
            field = path;
        }));
    row("no path", "none", filled<SoSFPath>([](SoSFPath&) {}));
    row("image", "2 x 1, 3 components", fromText<SoSFImage>("2 1 3 0xff0000 0x00ff00"));
    row("no image", "no image",
        filled<SoSFImage>([](SoSFImage& field) { field.setValue(SbVec2s(0, 0), 0, nullptr); }));
    row("volume", "1 x 1 x 2, 1 component", fromText<SoSFImage3>("1 1 2 1 0x01 0x02"));
    const auto withEnums = [](auto& field) {
        static const int values[] = {1, 2};
        static const SbName names[] = {"A", "B"};
        field.setEnums(2, const_cast<int*>(values), const_cast<SbName*>(names));
    };
    row("enum", "B", filled<SoSFEnum>([=](auto& field) { withEnums(field), field = 2; }));
    row("unlisted enum", "7 (not in the list)",
        filled<SoSFEnum>([=](auto& field) { withEnums(field), field = 7; }));
    row("bit mask", "A | B", filled<SoSFBitMask>([=](auto& field) { withEnums(field), field = 3; }));
    row("unnamed bits", "B | 0x44",
        filled<SoSFBitMask>([=](auto& field) { withEnums(field), field = 0x46; }));
    row("no bits", "none", filled<SoSFBitMask>([=](auto& field) { withEnums(field), field = 0; }));
    row("enums", "2 values: A, 9 (not in the list)", filled<SoMFEnum>([=](auto& field) {
            withEnums(field);
            field.set1Value(0, 1);
            field.set1Value(1, 9);
        }));
    row("bit masks", "2 values: A | B, 0x8", filled<SoMFBitMask>([=](auto& field) {
            withEnums(field);
            field.set1Value(0, 3);
            field.set1Value(1, 8);
        }));
}

void tst_ModelsFieldList::previews()
{
    QFETCH(MakeField, make);
    const std::unique_ptr<SoField> field(make());
    QTEST(fieldPreview(*field), "expected");
}

QString tst_ModelsFieldList::text(const FieldListModel& model, const char* field,
                                  FieldListModel::Column column)
{
    const QModelIndexList found =
        model.match(model.index(0, 0), Qt::DisplayRole, QString::fromLatin1(field), 1);
    return found.isEmpty() ? QStringLiteral("not listed")
                           : found.first().siblingAtColumn(column).data().toString();
}

void tst_ModelsFieldList::listsStates()
{
    auto* rotor = new SoTransform;
    auto* calculator = new SoElapsedTime;
    auto* cone = new SoCone;
    cone->ref();
    calculator->ref();
    rotor->setName("Rotor");
    cone->height.connectFrom(&calculator->timeOut);
    cone->bottomRadius.setIgnored(TRUE);
    cone->parts = SoCone::SIDES;
    FieldListModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setContainer(cone);
    QCOMPARE(text(model, "bottomRadius", FieldListModel::TypeColumn), QStringLiteral("SFFloat"));
    QCOMPARE(text(model, "bottomRadius", FieldListModel::StateColumn), QStringLiteral("ignored"));
    QCOMPARE(text(model, "height", FieldListModel::StateColumn),
             QStringLiteral("connected to ElapsedTime.timeOut"));
    QCOMPARE(text(model, "parts", FieldListModel::StateColumn), QString());
    QVERIFY(model.indexOf(&cone->parts).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(model.indexOf(&cone->bottomRadius).siblingAtColumn(FieldListModel::ValueColumn).data(Qt::FontRole).value<QFont>().strikeOut());

    auto* other = new SoTransform;
    other->ref();
    other->translation.connectFrom(&rotor->scaleFactor);
    model.setContainer(other);
    QCOMPARE(text(model, "translation", FieldListModel::StateColumn),
             QStringLiteral("connected to Rotor.scaleFactor"));
    auto* sensor = static_cast<SoNode*>(SoType::fromName("VRMLTimeSensor").createInstance());
    sensor->ref();
    model.setContainer(sensor);
    QCOMPARE(text(model, "time", FieldListModel::StateColumn), QStringLiteral("event out"));
    model.setContainer(nullptr);
    QCOMPARE(model.rowCount(), 0);
    sensor->unref();
    other->unref();
    cone->unref();
    calculator->unref();
}

void tst_ModelsFieldList::followsItsFields()
{
    auto* material = new SoMaterial;
    material->ref();
    FieldListModel model;
    model.setContainer(material);
    QSignalSpy changed(&model, &FieldListModel::dataChanged);
    for (int i = 1; i <= 100; ++i)
        material->transparency = static_cast<float>(i);
    SoDB::getSensorManager()->processDelayQueue(FALSE);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().toModelIndex(), model.indexOf(&material->transparency));
    QCOMPARE(text(model, "transparency", FieldListModel::ValueColumn), QStringLiteral("1 value: 100"));
    model.setContainer(nullptr);
    material->transparency = 0.5F;
    SoDB::getSensorManager()->processDelayQueue(FALSE);
    QCOMPARE(changed.size(), 1);
    material->unref();
}

void tst_ModelsFieldList::losesDestroyedFields()
{
    auto* cube = new SoCube;
    cube->ref();
    FieldListModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setContainer(cube);
    QCOMPARE(model.rowCount(), 3);
    const QPersistentModelIndex row = model.index(1, FieldListModel::ValueColumn);
    cube->height = 3;
    cube->unref();
    SoDB::getSensorManager()->processDelayQueue(FALSE);
    QVERIFY(!row.data().isValid() && !model.field(row));
    model.refreshStates();
    QCoreApplication::processEvents();
    QCOMPARE(model.rowCount(), 0);
}

KLV_TEST_MAIN(tst_ModelsFieldList)
#include "tst_ModelsFieldList.moc"
