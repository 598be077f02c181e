#include "TestMain.h"

#include "../../KlvExtender/src/SceneGraph/FieldBits.h"

#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/SoPath.h>
#include <Inventor/VRMLnodes/SoVRMLText.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/nodekits/SoShapeKit.h>

#include <cmath>
#include <limits>

namespace {

/// Every type that can be instantiated of a kind of fields, by name.
template <class Kind>
QList<QByteArray> typesOf()
{
    SoTypeList types;
    SoType::getAllDerivedFrom(Kind::getClassTypeId(), types);
    QList<QByteArray> names;
    for (int i = 0; i < types.getLength(); ++i)
        if (types[i].canCreateInstance())
            names << types[i].getName().getString();
    return names;
}

/// Gives enumerations and bit masks the names A to D for 1, 2, 4 and 8.
void giveNames(SoField& field)
{
    const int values[] = {1, 2, 4, 8};
    const SbName names[] = {"A", "B", "C", "D"};
    if (auto* single = dynamic_cast<SoSFEnum*>(&field))
        single->setEnums(4, values, names);
    if (auto* multiple = dynamic_cast<SoMFEnum*>(&field))
        multiple->setEnums(4, values, names);
}

template <class Field = SoField>
std::unique_ptr<Field> namedField(const QByteArray& type)
{
    auto field = newField<Field>(type.constData());
    giveNames(*field);
    return field;
}

std::unique_ptr<SoField> copyOf(const SoField& field)
{
    auto copy = newField(field.getTypeId().getName().getString());
    copyFieldValue(*copy, field);
    return copy;
}

/// The text of an element, without the indentation that changes from time to time.
QByteArray elementText(SoMField& field, int index)
{
    return QByteArray(getElementText(&field, index).getString()).simplified();
}

/// A text that a field of the type takes and that is not what a new one prints; empty for triggers.
QByteArray sampleText(const QByteArray& type)
{
    QList<QByteArray> candidates = {"\"C:\\dir\\\"",
                                    "B",
                                    "(A | C)",
                                    "TRUE",
                                    "FALSE",
                                    "2 1 3\n0x10203 0xfffefd",
                                    "1 2 1 4\n0xfffefdfc 0x1",
                                    "Cube { width 3 }",
                                    "Calculator { a 2 }"};
    for (QByteArray numbers : {"3", "5", "0.6"})
        for (int count = 0; count < 16; ++count, numbers += " 1")
            candidates << numbers;
    const PostedErrors<SoReadError> errors;
    for (const QByteArray& candidate : candidates) {
        const auto field = namedField(type);
        const QByteArray before = textOf(*field);
        if (setFieldFromText(field.get(), candidate.constData()) && textOf(*field) != before)
            return candidate;
    }
    return {};
}

} // namespace

class tst_SceneGraphText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void printedTextIsTaken_data()
    {
        QTest::addColumn<QByteArray>("type");
        for (const QByteArray& type : typesOf<SoField>())
            QTest::newRow(type.constData()) << type;
    }

    void printedTextIsTaken()
    {
        QFETCH(QByteArray, type);
        const PostedErrors<SoReadError> errors;
        const auto field = namedField(type);
        const auto other = namedField(type);
        QVERIFY2(setFieldFromText(field.get(), textOf(*field).constData()), textOf(*field).constData());
        QVERIFY(setFieldFromText(other.get(), textOf(*field).constData()));
        const QByteArray sample = sampleText(type);
        QCOMPARE(sample.isEmpty(), type == "SFTrigger");

        QVERIFY(setFieldFromText(field.get(), sample.constData()));
        const QByteArray printed = textOf(*field);
        QVERIFY2(setFieldFromText(other.get(), printed.constData()), printed.constData());
        QCOMPARE(textOf(*other), printed);
        static const QRegularExpression inexact("(Node|Engine|Path|Rotation|Plane)$");
        QVERIFY(inexact.match(type).hasMatch() || identicalFields(*field, *other));
        if (!field->isOfType(SoMField::getClassTypeId()))
            return;

        auto& list = static_cast<SoMField&>(*other);
        const QByteArray element = elementText(list, 0);
        QVERIFY(setElementFromText(&list, 2, element.constData()));
        QCOMPARE(elementText(list, 2), element);
        const QByteArray three = textOf(list);
        QVERIFY2(setFieldFromText(field.get(), three.constData()), three.constData());
        QCOMPARE(static_cast<SoMField&>(*field).getNum(), 3);
        QCOMPARE(textOf(*field), three);
        QVERIFY(setFieldFromText(field.get(), "[ ]"));
        QCOMPARE(static_cast<SoMField&>(*field).getNum(), 0);
    }

    void taken()
    {
        // clang-format off
        const struct { const char* type; const char* text; const char* printed; } rows[] = {
            {"SFFloat", " +.5 # half\n", "0.5"}, {"SFFloat", "1e-60", "0"}, {"SFFloat", "-inf", "-inf"},
            {"SFFloat", "NaN", "nan"}, {"SFDouble", "1e+010", "10000000000"},
            {"SFDouble", "1.797693134862316e+308", "1.797693134862316e+308"}, {"SFInt32", "-0x10", "-16"},
            {"SFInt32", "-2147483648", "-2147483648"}, {"SFShort", "017", "15"}, {"SFUInt32", "4294967295", "0xffffffff"},
            {"SFVec4ub", "255 0xff 0 1", "0xff 0xff 0x0 0x1"}, {"SFBool", "1", "TRUE"}, {"SFBool", "0", "FALSE"},
            {"SFRotation", "0 0 0 0", "0 0 1  0"}, {"SFBitMask", "(A|C)", "(A | C)"}, {"SFBitMask", "()", "()"},
            {"MFColorRGBA", "[ 0 0.25 0.5 1, 1 0 0 0.5 ]", "[ 0 0.25 0.5 1,\n    1 0 0 0.5 ]"},
            {"MFFloat", "[1,2\n#three\n3,]", "[ 1, 2, 3 ]"}, {"MFEnum", "[ A, B ]", "[ A,\n    B ]"},
            {"MFBitMask", "[ D, (A | B) ]", "[ D,\n    (A | B) ]"}, {"SFString", "word", "\"word\""},
            {"MFString", "[ one two, \"th ree\" ]", "[ \"one\",\n    \"two\",\n    \"th ree\" ]"},
            {"SFImage", "0 0 0", "0 0 0\n"}, {"SFNode", "#Inventor V2.1 ascii\n NULL", "NULL"}};
        // clang-format on
        for (const auto& row : rows) {
            const auto field = namedField(row.type);
            QVERIFY2(setFieldFromText(field.get(), row.text), row.text);
            QCOMPARE(textOf(*field), QByteArray(row.printed));
        }
    }

    void refused()
    {
        // clang-format off
        const std::pair<const char*, QByteArrayList> rows[] = {
            {"SFFloat", {"", " # 1", "abc", "2.5abc", "2.5 3", "1,5", "1e39", "-1e39", "--1", "+-1", "1e",
                         "0x1p3", "[ 1 ]"}},
            {"SFDouble", {"1e400", "1.8e308"}},
            {"SFInt32", {"3.7", "2147483648", "99999999999", "1e3", "08", "0x", "0xffffffff"}},
            {"SFShort", {"32768", "-32769"}}, {"SFUInt32", {"-1", "4294967296"}},
            {"SFVec4ub", {"256 0 0 0", "-1 0 0 0"}}, {"SFVec3f", {"1 2", "1 2 x", "1 2 3 4", "1, 2, 3"}},
            {"SFMatrix", {"1 0 0 0 0 1 0 0 0 0 1 0 0 0 0", "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 7"}},
            {"SFBool", {"2", "true", "TRUE FALSE", "-1"}}, {"SFEnum", {"E", "a", "1", "A B", ""}},
            {"SFBitMask", {"(A | E)", "(A", "A | B", "(A B)", "E"}},
            {"SFString", {"", "\"abc", "\"a\" \"b\"", "two words", "\"a\" b"}},
            {"MFFloat", {"[ 1, 2", "[ 1,, 2 ]", "[ , ]", "1 2", "[ 1, x, 3 ]", "[ 1 ] 2", "1 ]", "[ [ 1 ] ]"}},
            {"MFString", {"[ \"a\", \"b ]", "[ \"a\" \"b\"", "[ \"a\"b ]"}}, {"MFEnum", {"[ A, E ]"}},
            {"SFImage", {"2 2 1\n0x1 0x2 0x3", "1 1 1\n0x100", "-1 1 1", "1 1 5\n0x1", "100000 100000 4",
                         "32000 32000 4\n0x1", "1 1 1\n0x1 0x2"}},
            {"SFImage3", {"2000 2000 2000 4\n0x1", "1 1 1 1"}},
            {"SFNode", {"", "Cube", "Cube {", "Group { DEF A Group { USE A } }", "Cube { width abc }",
                        "Cube { } Sphere { }", "NULL x", "Path { NULL 1 0 }", "Calculator { }", "USE no"}},
            {"SFEngine", {"Cube { }", "Calculator { a x }"}}, {"SFPath", {"Cube {", "Calculator { }"}},
            {"MFNode", {"[ Cube { }, Cone { height x } ]", "[ Cube { }", "[ NULL, ]  NULL"}},
            {"SFTrigger", {"now"}}};
        // clang-format on
        for (const auto& [type, texts] : rows) {
            const auto field = namedField(type);
            QVERIFY(setFieldFromText(field.get(), sampleText(type).constData()));
            const auto copy = copyOf(*field);
            for (const QByteArray& text : texts) {
                field->setIgnored(!field->isIgnored());
                field->setDefault(field->isIgnored());
                const PostedErrors<SoReadError> errors;
                const Notifications notifications(*field);
                QVERIFY2(!setFieldFromText(field.get(), text.constData()), text.constData());
                QVERIFY2(identicalFields(*field, *copy), text.constData());
                QCOMPARE(field->isDefault(), field->isIgnored());
                QVERIFY2(errors.messages.size() == 1 && notifications.count == 0, text.constData());
            }
        }
    }

    void unchangedTextChangesNothing()
    {
        const auto check = [](auto&& field, auto value) {
            giveNames(field);
            field.setValue(value);
            const auto copy = copyOf(field);
            const Notifications notifications(field);
            QVERIFY(setFieldFromText(&field, textOf(field).constData()));
            QVERIFY2(identicalFields(field, *copy) && notifications.count == 1, textOf(field));
            if (auto* list = dynamic_cast<SoMField*>(static_cast<SoField*>(&field))) {
                QVERIFY(setElementFromText(list, 0, getElementText(list, 0)));
                QVERIFY2(identicalFields(field, *copy) && notifications.count == 2, textOf(field));
            }
        };
        check(SoSFFloat(), 0.1f + 0.2f);
        check(SoSFDouble(), 0.1 + 0.2);
        check(SoSFDouble(), std::copysign(std::nan("77"), -1.0));
        check(SoSFTime(), SbTime(1.1e9 / 7));
        check(SoSFRotation(), SbRotation(SbVec3f(1, 2, 3), 2.1f));
        check(SoMFRotation(), SbRotation(SbVec3f(-3, 0.1f, 2), 0.7f));
        check(SoSFPlane(), SbPlane(SbVec3f(1, 2, 3), 0.7f));
        check(SoSFBool(), 2);
        check(SoSFEnum(), 77);
        check(SoMFEnum(), 77);
        check(SoSFBitMask(), 0x33);
        check(SoMFBitMask(), 0x33);
        check(SoMFNode(), static_cast<SoNode*>(new SoCube));
        check(SoSFPath(), new SoPath(new SoCube));
    }

    void strings()
    {
        // Nodes of the VRML97 family print backslashes otherwise.
        auto* node = new SoVRMLText;
        node->ref();
        SoMFString single;
        // clang-format off
        const char* const strings[] = {
            "", "plain", "\"", "\\", "\\\\", "a\\", "a\"", "\\\"", "\"\\", "\\\\\"", "a\nb\tc\r",
            "# no comment", "[ x ]", ", \"", "\" ]", "\\\", \"", "a\",\n  ", "a\", \"b", "\",# \"",
            "\xc3\xa9\xf0\x9f\x98\x80", "\xff\x80 \xc3", "  ", "\"C:\\dir\\"};
        // clang-format on
        for (const char* string : strings) {
            SoSFString field;
            SoSFName name;
            field.setValue(string);
            QVERIFY2(setFieldFromText(&name, textOf(field).constData()), string);
            QVERIFY2(setFieldFromText(&field, textOf(name).constData()), string);
            QVERIFY2(name.getValue() == string && field.getValue() == string, string);
            for (SoMFString* list : {&node->string, &single}) {
                list->set1Value(0, "a\\");
                list->set1Value(1, string);
                list->set1Value(2, "\", ");
                list->set1Value(3, "b\"");
                const auto copy = copyOf(*list);
                const QByteArray printed = textOf(*list);
                list->setNum(0);
                QVERIFY2(setFieldFromText(list, printed.constData()), printed.constData());
                QVERIFY2(identicalFields(*list, *copy), (printed + " became " + textOf(*list)).constData());
                QVERIFY(setElementFromText(list, 0, getElementText(list, 1)));
                QVERIFY2((*list)[0] == string, string);
            }
        }
        node->unref();
    }

    void brokenStrings()
    {
        // Thousands of doubtful ends before the error at the end take no more than a moment.
        const QByteArray broken = "[ " + QByteArray("\"a\\\", ").repeated(20000) + "\"b";
        const PostedErrors<SoReadError> errors;
        SoMFString field;
        QVERIFY(!setFieldFromText(&field, broken.constData()));
    }

    void references()
    {
        auto* cube = new SoCube;
        cube->ref();
        SoMFNode nodes;
        for (int i = 0; i < 6; ++i)
            nodes.set1Value(i, cube);
        nodes.set1Value(3, nullptr);
        const int references = cube->getRefCount();
        {
            const PostedErrors<SoReadError> errors;
            QVERIFY(!setFieldFromText(&nodes, "[ DEF junk Cube { }, DEF junk Cube { width x } ]"));
            QVERIFY(!setElementFromText(&nodes, 0, "DEF junk Cube { } Cube { }"));
            QVERIFY(!SoNode::getByName("junk"));
            QCOMPARE(cube->getRefCount(), references);
        }
        QVERIFY(setElementFromText(&nodes, 1, "NULL"));
        QVERIFY(setFieldFromText(&nodes, "[ NULL, DEF kept Cube { width 5 }, USE kept, ]"));
        QVERIFY(nodes.getNum() == 3 && !nodes[0] && nodes[1] == nodes[2]);
        QCOMPARE(static_cast<SoCube*>(nodes[1])->width.getValue(), 5.0f);
        QCOMPARE(cube->getRefCount(), 1);
        cube->unref();
        // A node kit would use a part of another type as what it expects.
        SoShapeKit* kit = new SoShapeKit;
        kit->ref();
        const PostedErrors<SoReadError> errors;
        QVERIFY(!setFieldFromText(kit->getField("topSeparator"), "Cube { }"));
        QVERIFY(setFieldFromText(kit->getField("shape"), "Cube { }"));
        kit->unref();
    }

    void paths()
    {
        auto* root = new SoSeparator;
        root->addChild(new SoMaterial);
        root->addChild(new SoSeparator);
        static_cast<SoSeparator*>(root->getChild(1))->addChild(new SoCube);
        SoMFPath field;
        SoMFPath other;
        field.set1Value(0, new SoPath(root));
        field[0]->append(1);
        field[0]->append(0);
        QVERIFY(setFieldFromText(&other, textOf(field).constData()));
        QCOMPARE(other[0]->getLength(), 3);
        QVERIFY(other[0]->getTail()->isOfType(SoCube::getClassTypeId()));
        QVERIFY(setElementFromText(&other, 8, "Path { Group { Cube { } Cone { } Cube { } } 1 1 }"));
        QCOMPARE(other[8]->getIndex(1), 1);
        QVERIFY(!other[7]);
    }

    void refusedElements()
    {
        // clang-format off
        const char* rows[][2] = {
            {"MFFloat", "[ 1 ]"}, {"MFFloat", "1, 2"}, {"MFInt32", "2.5"}, {"MFVec3f", "1 2"},
            {"MFEnum", "E"}, {"MFBitMask", "(A | B) x"}, {"MFBool", "\"\""}, {"MFString", "\"a\", \"b\""},
            {"MFNode", "[ NULL ]"}, {"MFNode", "Cube { width x }"}, {"MFPath", ""}};
        // clang-format on
        for (const auto& [type, text] : rows) {
            const auto field = namedField<SoMField>(type);
            SoMField* list = field.get();
            const QByteArray sample = sampleText(type);
            for (int i = 0; i < 3; ++i)
                QVERIFY(setElementFromText(list, i, sample.constData()));
            const auto copy = copyOf(*field);
            field->setDefault(TRUE);
            const PostedErrors<SoReadError> errors;
            const Notifications notifications(*field);
            for (const int index : {1, 3, 1000})
                QVERIFY2(!setElementFromText(list, index, text), text);
            QVERIFY(!setElementFromText(list, std::numeric_limits<int>::max(), sample.constData()));
            QVERIFY(!setElementFromText(list, 1, text, FALSE));
            QCOMPARE(errors.messages.size(), 4);
            QVERIFY(!setElementFromText(list, -1, sample.constData()));
            QVERIFY(identicalFields(*field, *copy) && field->isDefault() && notifications.count == 0);
        }
    }

    void elementsBeyondTheEnd()
    {
        for (const QByteArray& type : typesOf<SoMField>()) {
            const auto field = namedField<SoMField>(type);
            SoMField* list = field.get();
            // Memory that was used before must not show through.
            const QByteArray sample = sampleText(type);
            for (int i = 0; i < 40; ++i)
                QVERIFY(setElementFromText(list, i, sample.constData()));
            list->setNum(33);
            const Notifications notifications(*field);
            QVERIFY(setElementFromText(list, 36, sample.constData()));
            QVERIFY(notifications.count == 1 && list->getNum() == 37);
            insertElements(list, 0, 1);
            QCOMPARE(notifications.count, 2);
            const QByteArray neutral = elementText(*list, 0);
            for (const int index : {34, 35, 36})
                QCOMPARE(elementText(*list, index), neutral);
            QCOMPARE(elementText(*list, 37), elementText(*list, 33));
            QVERIFY2(setElementFromText(list, 0, neutral.constData()), neutral.constData());
        }
    }

    void copiesOfElements()
    {
        for (const QByteArray& type : typesOf<SoMField>()) {
            const auto field = namedField<SoMField>(type);
            SoMField* list = field.get();
            const auto other = newField<SoMField>(type == "MFTime" ? "MFFloat" : "MFTime");
            for (const int index : {1, 3})
                QVERIFY(setElementFromText(list, index, sampleText(type).constData()));
            const auto before = copyElements(list, 0, 4);
            const auto copy = copyElements(list, 1, 9);
            QVERIFY(copy->getNum() == 3 && identicalElements(*copy, 0, *list, 1, 3));
            const Notifications notifications(*field);
            swapElements(list, 3, 0);
            QVERIFY(identicalElements(*list, 0, *copy, 2, 1) && !identicalFields(*field, *before));
            swapElements(list, 0, 3);
            QVERIFY(identicalFields(*field, *before));
            setElements(list, 6, copy.get());
            QCOMPARE(notifications.count, 3);
            QVERIFY(list->getNum() == 9 && identicalElements(*list, 6, *copy, 0, 3));
            QVERIFY(identicalElements(*list, 4, *copy, 1, 1) && identicalElements(*list, 5, *copy, 1, 1));
            swapElements(list, 0, 9);
            setElements(list, -1, copy.get());
            setElements(list, 0, other.get());
            QVERIFY(notifications.count == 3 && copyElements(list, 9, 1)->getNum() == 0);
            setElements(list, 2, list);
            QVERIFY(list->getNum() == 11 && identicalElements(*list, 2, *before, 0, 4));
        }
    }

    void notificationAndConnection()
    {
        SoMFColor field;
        const Notifications notifications(field);
        QVERIFY(setFieldFromText(&field, "[ 1 0 0, 0 1 0, 0 0 1 ]"));
        QVERIFY(notifications.count == 1 && !field.isDefault());
        field.enableNotify(FALSE);
        field.setDefault(TRUE);
        QVERIFY(setFieldFromText(&field, "0 0 0"));
        QVERIFY(notifications.count == 1 && !field.isNotifyEnabled() && !field.isDefault());

        SoSFFloat source;
        SoMFFloat slave;
        slave.connectFrom(&source);
        QVERIFY(setFieldFromText(&slave, "[ 5, 6 ]"));
        QVERIFY(slave.isConnected() && slave[1] == 6.0f);
        source.setValue(3);
        QCOMPARE(slave[0], 3.0f);
    }

    void messages()
    {
        auto* material = new SoMaterial;
        material->ref();
        material->setName("Gold");
        PostedErrors<SoReadError> errors;
        QVERIFY(!setFieldFromText(&material->transparency, "ab\nc"));
        QVERIFY(!setElementFromText(&material->diffuseColor, 3, QByteArray(5000, '%').constData()));
        material->unref();
        SoSFNode node;
        QVERIFY(!setFieldFromText(&node, "Cube { width x }"));
        QVERIFY(!setFieldFromText(nullptr, "1"));
        QVERIFY(!setElementFromText(nullptr, 0, "1"));
        const QStringList expected = {
            "Coin read error: field \"transparency\" of Material \"Gold\" does not take \"ab\\nc\"",
            QString("Coin read error: element 4 of field \"diffuseColor\" of Material \"Gold\" does not take "
                    "\"%1\u2026\"")
                .arg(QString(60, '%')),
            "Coin read error: a field of type SFNode does not take \"Cube { width x }\""};
        QCOMPARE(errors.messages, expected);
    }
};

KLV_TEST_MAIN(tst_SceneGraphText)
#include "tst_SceneGraphText.moc"
