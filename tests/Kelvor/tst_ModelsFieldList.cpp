#include "Models/FieldListModel.h"
#include "Models/FieldPreview.h"

#include "TestMain.h"

#include <QAbstractItemModelTester>

class tst_ModelsFieldList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }
    void previews()
    {
        // clang-format off
        const char* const rows[][3] = {
            {"SFVec3f", "0.08 2.5e20 -3", "0.08 2.5e+20 -3"},
            {"SFMatrix", "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1", "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1"},
            {"MFVec3f", "[1 2 3, 4 5 6]", "2 values: 1 2 3, 4 5 6"}, {"MFFloat", "[]", "no values"},
            {"SFString", "\"a\nb\tc\"", "\"a⏎b c\""}, {"MFString", "[\"ä\", \"\"]", "2 values: \"ä\", \"\""},
            {"SFName", "\"n\xe9\"", "\"né\""}, {"SFName", "\"né\"", "\"né\""},
            {"SFNode", "DEF Box Cube {}", "Cube \"Box\""},
            {"MFNode", "[Cube {}, Cone {}]", "2 values: Cube, Cone"},
            {"SFEngine", "Calculator {}", "Calculator"},
            {"SFPath", "Path { Group { Cube {} } 1 0 }", "path of 2 nodes"}, {"SFPath", "NULL", "none"},
            {"SFImage", "2 1 3 0xff0000 0x00ff00", "2 x 1, 3 components"}, {"SFImage", "0 0 0", "no image"},
            {"SFImage3", "1 1 2 1 0x01 0x02", "1 x 1 x 2, 1 component"}};
        // clang-format on
        for (const auto& [type, value, expected] : rows) {
            const auto field = newField(type);
            QVERIFY(field->set(value));
            QCOMPARE(fieldPreview(*field), QString::fromUtf8(expected));
        }
    }

    void previewsOfUnlistedValues()
    {
        int values[] = {1, 2};
        SbName names[] = {"A", "B"};
        const auto previews = [&](auto&& single, auto&& multiple, std::initializer_list<int> tried) {
            single.setEnums(2, values, names);
            multiple.setEnums(2, values, names);
            QStringList texts;
            for (const int value : tried) {
                single = value;
                multiple.set1Value(multiple.getNum(), value);
                texts += fieldPreview(single);
            }
            return texts + QStringList(fieldPreview(multiple));
        };
        QCOMPARE(previews(SoSFEnum(), SoMFEnum(), {2, 7}).join(QLatin1String("; ")),
                 QString("B; 7 (not in the list); 2 values: B, 7 (not in the list)"));
        QCOMPARE(previews(SoSFBitMask(), SoMFBitMask(), {3, 0x46, 0}).join(QLatin1String("; ")),
                 QString("A | B; B | 0x44; none; 3 values: A | B, B | 0x44, none"));
    }

    void previewsOfLargeValues()
    {
        SoMFInt32 numbers;
        numbers.setNum(10000000);
        for (int i = 0; i < 20; ++i)
            numbers.set1Value(i, 5);
        QCOMPARE(fieldPreview(numbers), QString("10000000 values: 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, …"));
        SoSFString faces;
        faces = QByteArray("\U0001F642").repeated(1000000).constData();
        QCOMPARE(fieldPreview(faces), // not cut within a character
                 QLatin1Char('"') + QString::fromUtf8("\U0001F642").repeated(49) + QChar(0x2026));
    }

    void listsStates()
    {
        SoSeparator* root =
            sceneOf("Separator { DEF Rotor Transform {}"
                    " Transform { translation = USE Rotor . scaleFactor  center 1 2 3 ~ }"
                    " Material { transparency = ElapsedTime {} . timeOut } VRMLTimeSensor {} }");
        root->ref();
        SoNode* transform = root->getChild(1);
        QCOMPARE(state(transform, "translation"), QString("connected to Rotor.scaleFactor"));
        QCOMPARE(state(transform, "center"), QString("ignored"));
        QCOMPARE(state(transform, "rotation"), QString("default"));
        QCOMPARE(state(root->getChild(2), "transparency"), QString("connected to ElapsedTime.timeOut"));

        QVERIFY(shown(transform, "center", FieldListModel::NameColumn, Qt::FontRole).value<QFont>().bold());
        QVERIFY(
            shown(transform, "center", FieldListModel::ValueColumn, Qt::FontRole).value<QFont>().strikeOut());
        QCOMPARE(state(root->getChild(3), "timeIn"), QString("event in, connected to realTime.realTime"));
        root->unref();
    }

    void followsItsFields()
    {
        auto* material = new SoMaterial;
        material->ref();
        FieldListModel model;
        model.setContainer(material);
        QSignalSpy changed(&model, &FieldListModel::dataChanged);
        for (int i = 1; i <= 100; ++i) {
            material->transparency = static_cast<float>(i);
            material->shininess = 0.5F;
            processSensors();
        }
        QVERIFY(changed.wait());
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().at(0).toModelIndex(), model.indexOf(&material->shininess));
        QCOMPARE(changed.first().at(1).toModelIndex().row(), model.indexOf(&material->transparency).row());
        QCOMPARE(shown(material, "transparency", FieldListModel::ValueColumn), QString("100"));
        model.setLive(false);
        material->transparency = 0.5F;
        processSensors();
        QVERIFY(!changed.wait(50));
        model.setLive(true);
        QCOMPARE(changed.size(), 2);
        material->unref();
    }

private:
    static QVariant shown(SoNode* node, const char* field, int column, int role = Qt::DisplayRole)
    {
        FieldListModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        model.setContainer(node);
        return model.data(model.indexOf(node->getField(field)).siblingAtColumn(column), role);
    }
    static QString state(SoNode* node, const char* field)
    {
        return shown(node, field, FieldListModel::StateColumn).toString();
    }
};

KLV_TEST_MAIN(tst_ModelsFieldList)
#include "tst_ModelsFieldList.moc"
