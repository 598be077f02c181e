#include "TestMain.h"

#include "../../KlvExtender/src/SceneGraph/FieldBits.h"

#include <KlvExtender/KlvContainerRef.h>
#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoErrorStack.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>
#include <KlvExtender/SceneGraph/SoGLError.h>
#include <KlvExtender/SceneGraph/SoPreferences.h>
#include <KlvExtender/SceneGraph/SoTypedObject.h>

#include <Inventor/SoPath.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/engines/SoEngineOutput.h>
#include <Inventor/lists/SoEngineOutputList.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/lists/SoTypeList.h>

#include <limits>

/// Comparing and copying fields, their elements, and the small types beside them.
class tst_SceneGraphValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void identity()
    {
        const float nan = std::numeric_limits<float>::quiet_NaN();
        SoMFVec3f a;
        SoMFVec3f b;
        QVERIFY(identicalFields(a, b));
        a.set1Value(1, nan, 0, 1);
        QVERIFY(!identicalFields(a, b));
        copyFieldValue(b, a);
        QVERIFY(identicalFields(a, b));
        b.set1Value(1, nan, -0.0f, 1);
        QVERIFY(!identicalFields(a, b));
        QVERIFY(!identicalFields(SoSFShort(), SoSFUShort()));

        // A field that is behind its connection is brought up to date.
        SoSFString source;
        SoSFString slave;
        slave.connectFrom(&source);
        source.setValue("new");
        QVERIFY(identicalFields(slave, source));
    }

    void copies()
    {
        auto* cube = new SoCube;
        cube->ref();
        {
            SoMFNode shorter;
            SoMFNode nodes;
            shorter.set1Value(0, nullptr);
            for (int i = 0; i < 30; ++i)
                nodes.set1Value(i, cube);
            const Notifications notifications(nodes);
            copyFieldValue(nodes, shorter);
            QCOMPARE(nodes.getNum(), 1);
            QCOMPARE(notifications.count, 1);
            QCOMPARE(cube->getRefCount(), 1);
            nodes.set1Value(1, cube);
            const auto copy1 = copyElements(&nodes, 0, 2);
            QCOMPARE(cube->getRefCount(), 3);
            setElements(&nodes, 3, copy1.get());
            swapElements(&nodes, 0, 1);
            swapElements(&nodes, 3, 0);
            QCOMPARE(cube->getRefCount(), 4);
            cube->setName("Crate");
            QCOMPARE(getElementSummary(&nodes, 4), SbString("Cube \"Crate\""));
            QCOMPARE(getElementSummary(&nodes, 2), SbString("NULL"));

            SoMFPath paths;
            SoMFPath copy;
            for (int i = 0; i < 30; ++i)
                paths.set1Value(i, new SoPath(cube));
            copyFieldValue(copy, paths);
            copyFieldValue(copy, paths);
            QVERIFY(identicalFields(copy, paths));
            QCOMPARE(getElementSummary(&paths, 29), SbString("Cube \"Crate\""));
            swapElements(&paths, 0, 29);
            deleteElements(&paths, 0, 29);
            QVERIFY(paths[0]->getRefCount() == 2 && paths[0] == copy[0]);
        }
        QCOMPARE(cube->getRefCount(), 1);
        cube->unref();

        // An enumeration keeps its own table.
        const int values[] = {3, 4};
        const SbName names[] = {"THREE", "FOUR"};
        SoSFEnum named;
        SoSFEnum unnamed;
        named.setEnums(2, values, names);
        unnamed.setValue(4);
        copyFieldValue(named, unnamed);
        QCOMPARE(textOf(named), QByteArray("FOUR"));
    }

    void insertionAndDeletion()
    {
        constexpr int many = std::numeric_limits<int>::max();
        const QByteArray all = "[ 1, 2, 3 ]";
        // clang-format off
        const std::tuple<void (*)(SoMField*, int, int), int, int, QByteArray> rows[] = {
            {insertElements, 1, 2, "[ 1, 0, 0, 2, 3 ]"}, {insertElements, 5, 1, "[ 1, 2, 3, 0, 0, 0 ]"},
            {insertElements, -1, 1, all}, {insertElements, 0, -3, all}, {insertElements, 0, many, all},
            {insertElements, many, 1, all}, {deleteElements, 1, 1, "[ 1, 3 ]"},
            {deleteElements, 2, 9, "[ 1, 2 ]"}, {deleteElements, 0, many, "[  ]"},
            {deleteElements, 3, 1, all}, {deleteElements, 9, 1, all}, {deleteElements, -1, 2, all},
            {deleteElements, 1, -1, all}};
        // clang-format on
        const PostedErrors<SoDebugError> refusals;
        for (const auto& [change, start, count, left] : rows) {
            SoMFInt32 field;
            field.set(all.constData());
            const Notifications notifications(field);
            change(&field, start, count);
            QCOMPARE(textOf(field), left);
            QCOMPARE(notifications.count, left == all ? 0 : 1);
            change(nullptr, 0, 1);
        }
        QCOMPARE(refusals.messages.size(), 2);
    }

    /// Coin would end the process where an engine misses an element, or divides by zero.
    void enginesSurviveTheirInputs()
    {
        SoTypeList types;
        SoType::getAllDerivedFrom(SoEngine::getClassTypeId(), types);
        const PostedErrors<SoReadError> refusedTexts;
        const PostedErrors<SoDebugError> refusedDeletions;
        for (int i = 0; i < types.getLength(); ++i) {
            if (!types[i].canCreateInstance())
                continue;
            const KlvContainerRef engine(static_cast<SoFieldContainer*>(types[i].createInstance()));
            SoFieldList inputs;
            SoEngineOutputList outputs;
            engine.get()->getFields(inputs);
            static_cast<SoEngine*>(engine.get())->getOutputs(outputs);
            for (int k = 0; k < inputs.getLength() * outputs.getLength(); ++k) {
                SoField* input = inputs[k / outputs.getLength()];
                SoEngineOutput* output = outputs[k % outputs.getLength()];
                const std::unique_ptr<SoField> target(
                    static_cast<SoField*>(output->getConnectionType().createInstance()));
                target->connectFrom(output);
                auto* list = dynamic_cast<SoMField*>(input);
                setFieldFromText(input, list ? "[ ]" : "0");
                target->evaluate();
                deleteElements(list, 0, list ? list->getNum() : 0);
                target->evaluate();
            }
        }
        QVERIFY(refusedTexts.messages.size() > 30 && refusedDeletions.messages.size() > 30);
    }

    void missingElements()
    {
        SoMFInt32 field;
        field.setValue(4);
        for (const int index : {-1, 1, 1000000})
            QCOMPARE(getElementText(&field, index).getLength(), 0);
        QCOMPARE(getElementText(nullptr, 0).getLength(), 0);
        const Notifications notifications(field);
        valueChanged(&field, 0, 0, TRUE);
        valueChanged(&field, 2, 5, FALSE);
        valueChanged(nullptr, 0, 0, TRUE);
        QCOMPARE(notifications.count, 2);
    }

    void stringText()
    {
        const auto units = [](std::initializer_list<char16_t> list) {
            return QString::fromUtf16(std::data(list), qsizetype(list.size()));
        };
        const QPair<QByteArray, QString> rows[] = {
            {"plain \"text\"\n", "plain \"text\"\n"},
            {"\xef\xbb\xbf", QString(QChar(0xfeff))},
            {"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80", QString::fromUcs4(U"\u00e9\u20ac\U0001f600")},
            {"\x80\xff", units({0xdc80, 0xdcff})},
            {"\xc3", units({0xdcc3})},
            {"\xe0\x80\x80", units({0xdce0, 0xdc80, 0xdc80})},
            {"\xed\xb2\x80", units({0xdced, 0xdcb2, 0xdc80})},
            {"\xf4\x90\x80\x80", units({0xdcf4, 0xdc90, 0xdc80, 0xdc80})},
            {"\xf0\x9f\x98-", units({0xdcf0, 0xdc9f, 0xdc98, 0x2d})}};
        for (const auto& [bytes, text] : rows) {
            QCOMPARE(toUtf16(bytes.constData()), text);
            QCOMPARE(QByteArray(fromUtf16(text).getString()), bytes);
        }
        QCOMPARE(toLatin1("\xc3\xa9\xe2\x82\xac"), QByteArray("\xe9?"));
        QCOMPARE(QByteArray(fromLatin1("\xe9").getString()), QByteArray("\xc3\xa9"));
        QCOMPARE(QByteArray(fromUtf16(QString::fromUtf16(u"a\0b\xd800", 4)).getString()), QByteArray("ab?"));
        SbString string("text");
        makeNull(string);
        QCOMPARE(string.getLength(), 0);
    }

    void preferences()
    {
        const char* name = "KELVOR_TEST_PREFERENCE";
        for (const QByteArray value : {"", "0", "false", "No", "OFF", "1", "TRUE", "on", "00"}) {
            qputenv(name, value);
            const bool yes = value == "1" || value == "TRUE" || value == "on" || value == "00";
            QCOMPARE(bool(SoPreferences::getBool(name, FALSE)), yes);
            QCOMPARE(bool(SoPreferences::getBool(name, TRUE)), yes || value.isEmpty());
        }
        qunsetenv(name);
        QVERIFY(SoPreferences::getBool(name, TRUE) && !SoPreferences::getBool(name, FALSE));
    }

    void errorClasses()
    {
        QVERIFY(SoGLError::getHandlerCallback() == SoReadError::getHandlerCallback());
        QVERIFY(SoGLError::getClassTypeId() != SoErrorStack::getClassTypeId());
        QVERIFY(SoGLError::getClassTypeId().isDerivedFrom(SoError::getClassTypeId()));
        const QString text(100000, '%');
        const PostedErrors<SoErrorStack> stack;
        const PostedErrors<SoGLError> openGl;
        SoErrorStack::post("[%s]", qPrintable(text));
        SoGLError::post("[%s]", qPrintable(text));
        QCOMPARE(stack.messages, QStringList("Coin error stack: [" + text + "]"));
        QCOMPARE(openGl.messages, QStringList("OpenGL error: [" + text + "]"));
    }
};

KLV_TEST_MAIN(tst_SceneGraphValues)
#include "tst_SceneGraphValues.moc"
