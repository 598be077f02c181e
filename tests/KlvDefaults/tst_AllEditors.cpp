// What all editors of single values have in common; also where people write a comma before the decimals.

#include "EditedField.h"
#include "KlvDefaults.h"

#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/nodes/SoSubNode.h>

// clang-format off
/// The kind, the name and the default value of a field for every editor.
#define EVERY_FIELD(DO) \
    DO(SoSFBitMask, bitMask, (SECOND)) DO(SoSFBool, flag, (FALSE)) DO(SoSFEnum, choice, (FIRST)) \
    DO(SoSFDouble, real, (0.25)) DO(SoSFFloat, single, (0.25f)) DO(SoSFInt32, int32, (-7)) \
    DO(SoSFTime, any, (SbTime(1.5))) DO(SoSFName, name, (SbName("x"))) \
    DO(SoSFPlane, plane, (SbPlane(SbVec3f(0, 1, 0), 2))) \
    DO(SoSFRotation, rotation, (SbVec3f(0, 1, 0), 2)) DO(SoSFShort, int16, (-7)) \
    DO(SoSFString, string, ("x")) DO(SoSFUInt32, uint32, (7)) DO(SoSFUShort, uint16, (7)) \
    DO(SoSFVec2f, vec2f, (1, 2)) DO(SoSFVec2i32, vec2i32, (1, 2)) DO(SoSFVec2s, vec2s, (1, 2)) \
    DO(SoSFVec3f, vec3f, (1, 2, 3)) DO(SoSFVec4f, vec4f, (1, 2, 3, 4))
#define DECLARE_FIELD(kind, name, value) kind name;
#define ADD_FIELD(kind, name, value) SO_NODE_ADD_FIELD(name, value);

class EveryKind : public SoNode
{
    SO_NODE_HEADER(EveryKind);

public:
    enum Choice { NONE, FIRST, SECOND };
    static void initClass() { SO_NODE_INIT_CLASS(EveryKind, SoNode, "Node"); }
    EveryKind()
    {
        SO_NODE_CONSTRUCTOR(EveryKind);
        SO_NODE_DEFINE_ENUM_VALUE(Choice, NONE);
        SO_NODE_DEFINE_ENUM_VALUE(Choice, FIRST);
        SO_NODE_DEFINE_ENUM_VALUE(Choice, SECOND);
        SO_NODE_SET_SF_ENUM_TYPE(bitMask, Choice);
        SO_NODE_SET_SF_ENUM_TYPE(choice, Choice);
        EVERY_FIELD(ADD_FIELD)
    }
    EVERY_FIELD(DECLARE_FIELD)
};

SO_NODE_SOURCE(EveryKind);
// clang-format on

namespace {

/// One kind of field, and what is done to it.
struct Kind
{
    const char* field;
    const char* other;    ///< a value that comes from outside
    const char* extremes; ///< values at the end of the kind's range, separated by bars
    const char* input;    ///< the class of the input that is edited, the first of its kind
    const char* keys;     ///< what is entered there
    const char* result;   ///< the value afterwards, of a field that had the other value
};

const Kind Kinds[] = {
    {"bitMask", "(FIRST|SECOND)", "NONE", "QCheckBox", " ", "SECOND"},
    {"flag", "TRUE", "FALSE", "QCheckBox", " ", "FALSE"},
    {"choice", "SECOND", "NONE", "QComboBox", "f", "FIRST"},
    {"real", "0.30000000000000004", "inf|-inf|nan|1.7976931348623157e+308|-5e-324", "QLineEdit", "1.5\r",
     "1.5"},
    {"single", "0.1", "inf|-inf|nan|3.4028235e38|-1e-45", "QLineEdit", "-2.5\r", "-2.5"},
    {"int32", "1000000007", "2147483647|-2147483648", "QLineEdit", "-2147483648\r", "-2147483648"},
    {"any", "0.30000000000000004", "1e300", "QLineEdit", "1.5", "1.5"},
    {"name", "abc", "\"\"", "QLineEdit", "d\r", "d"},
    {"plane", "0 0 1 0.1", "0 0 1 3.4028235e38", "QLineEdit", "1\r", "1 0 1 0.1"},
    {"rotation", "0 0 1 3.1415927", "1 0 0 0.1", "QLineEdit", "1\r", "1 0 1 3.1415927"},
    {"int16", "1007", "32767|-32768", "QLineEdit", "-32768\r", "-32768"},
    {"string", "\"1,5 \\\"x\\\"\"", "\"\"", "QLineEdit", "d\r", "\"d\""},
    {"uint32", "1000000007", "4294967295|0", "QLineEdit", "4294967295\r", "4294967295"},
    {"uint16", "1007", "65535|0", "QLineEdit", "65535\r", "65535"},
    {"vec2f", "0.123456789 0.1", "inf -inf|nan 3e38", "QLineEdit", "1.5\r", "1.5 0.1"},
    {"vec2i32", "3 1000000007", "-2147483648 2147483647", "QSpinBox", "2147483647\r",
     "2147483647 1000000007"},
    {"vec2s", "3 1007", "-32768 32767", "QSpinBox", "-5\r", "-5 1007"},
    {"vec3f", "0.123456789 0.1 0.2", "inf -inf nan", "QLineEdit", "1.5\r", "1.5 0.1 0.2"},
    {"vec4f", "0.123456789 0.1 0.2 0.3", "inf -inf nan 1", "QLineEdit", "1.5\r", "1.5 0.1 0.2 0.3"},
};

/// What an editor's inputs show, but for the sliders, whose ranges have grown or not.
QStringList shownBy(const QWidget* widget)
{
    QStringList shown;
    for (const QWidget* child : widget->findChildren<QWidget*>()) {
        for (const char* property : {"text", "currentText", "checked"})
            shown += child->property(property).toString();
    }
    return shown;
}

} // namespace

class tst_AllEditors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { EveryKind::initClass(); }
    void init() { QTest::failOnWarning(unexpectedWarnings()); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void everyEditor_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QLocale>("locale");
        for (int row = 0; row < int(std::size(Kinds)); ++row) {
            for (const QLocale& locale : {QLocale::c(), QLocale(QLocale::German)})
                QTest::addRow("%s %s", Kinds[row].field, qPrintable(locale.name())) << row << locale;
        }
    }
    void everyEditor()
    {
        QFETCH(int, row);
        QFETCH(QLocale, locale);
        QLocale::setDefault(locale);
        const Kind& kind = Kinds[row];
        const bool isBitMask = row == 0; // changes without a command, shows changes when it is chosen again
        KlvDefaults plugin;
        plugin.load();
        EveryKind* const nodes[] = {new EveryKind, new EveryKind, new EveryKind};
        for (SoNode* node : nodes)
            node->ref();
        const auto [field, source, expected] = std::tuple(
            nodes[0]->getField(kind.field), nodes[1]->getField(kind.field), nodes[2]->getField(kind.field));
        auto* services = KlvServices::getInstance();
        QUndoStack* history = services->getUndoStack();
        services->setSelectedField(field);

        KlvEditor* editor = nullptr;
        for (KlvExtension* extension : plugin.getExtensions()) {
            auto* candidate = dynamic_cast<KlvEditor*>(extension);
            const SoType handled = candidate ? candidate->getHandledType() : SoType::badType();
            if (handled == field->getTypeId() || (handled == SoSField::getClassTypeId() && !editor))
                editor = candidate;
        }
        QWidget* widget = editor->getWidget();
        editor->setEditedObject(field);
        const auto showAnew = [&] {
            editor->deactivate();
            editor->activate();
            widget->activateWindow();
            QApplication::processEvents();
            return shownBy(widget);
        };
        const auto shown = [&] {
            processSensors();
            // As when idle, the history learns of changes that were not made with commands.
            services->setSelectedField(nullptr);
            services->setSelectedField(field);
            return isBitMask ? showAnew() : shownBy(widget);
        };
        const auto set = [&](SoField* changed, const char* text) { setFieldFromText(changed, text); };
        const auto holds = [&](const char* text) {
            set(expected, text);
            return field->isSame(*expected) || (strstr(text, "nan") && textOf(*field) == textOf(*expected));
        };
        const auto edit = [&](const char* keys) {
            const auto children = widget->findChildren<QWidget*>();
            const auto input = std::find_if(children.begin(), children.end(),
                                            [&](QWidget* child) { return child->inherits(kind.input); });
            (*input)->setFocus();
            for (auto* line : widget->findChildren<QLineEdit*>())
                line->selectAll();
            QTest::keyClicks(*input, keys);
            return *input;
        };

        // Changes from outside.
        const QStringList first = showAnew();
        set(field, kind.other);
        const QStringList other = shown();
        QVERIFY(other != first && other == showAnew());
        // The wheel is not for inputs that are only passed.
        for (QWidget* child : widget->findChildren<QWidget*>()) {
            QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
            child->clearFocus();
            QApplication::sendEvent(child, &wheel);
        }
        QVERIFY(holds(kind.other) && shown() == other);

        // Editing, and the way back to the old value and forth again.
        history->clear();
        const QByteArray keys(kind.keys);
        if (kind.input == QLatin1String("QLineEdit") && keys.endsWith('\r')) {
            QWidget* input = edit(keys.chopped(1));
            QTest::keyClick(input, Qt::Key_Escape);
            QTest::keyClick(input, Qt::Key_Return);
            QVERIFY(holds(kind.other) && shown() == other && history->count() == 0);
        }
        edit(keys);
        QVERIFY2(holds(kind.result), textOf(*field));
        QVERIFY(shown() != other);
        QCOMPARE(history->count(), isBitMask ? 0 : 1);
        if (!isBitMask) {
            history->undo();
            QVERIFY(holds(kind.other) && shown() == other);
            history->redo();
            QVERIFY(holds(kind.result) && shown() == showAnew());
        }

        // The buttons.
        widget->findChild<QPushButton*>("m_ignoreButton")->click();
        QVERIFY(field->isIgnored());
        history->undo();
        QVERIFY(!field->isIgnored() && holds(kind.result));
        widget->findChild<QPushButton*>("m_defaultButton")->click();
        QVERIFY(field->isDefault() && field->isSame(*source) && shown() == first);
        history->undo();
        QVERIFY(!field->isDefault() && holds(kind.result));

        // A connection has the last word.
        set(source, kind.other);
        field->connectFrom(source);
        QCOMPARE(shown(), other);
        edit(keys);
        source->touch();
        QVERIFY(holds(kind.other) && shown() == other);
        field->disconnect();

        // Values at the ends, which Return leaves as they are.
        history->clear();
        for (const QByteArray& extreme : QByteArray(kind.extremes).split('|')) {
            set(field, extreme);
            QVERIFY2(holds(extreme), extreme);
            const QStringList atEnd = shown();
            for (auto* line : widget->findChildren<QLineEdit*>())
                QTest::keyClick(line, Qt::Key_Return);
            QVERIFY2(holds(extreme) && shown() == atEnd && atEnd == showAnew(), extreme);
        }

        services->setSelectedNode(nullptr);
        history->clear();
        editor->deactivate();
        plugin.unload();
        for (SoNode* node : nodes)
            node->unref();
    }

    void builtAnew()
    {
        KlvDefaults plugin;
        plugin.load();
        for (KlvExtension* extension : plugin.getExtensions()) {
            auto* editor = dynamic_cast<KlvFieldEditors*>(extension);
            if (!editor)
                continue;
            const SoType type = editor->getHandledType();
            const char* any = type == SoSField::getClassTypeId() ? "SFTime" : "MFTime";
            const auto field = newField(type.canCreateInstance() ? type.getName().getString() : any);
            editor->setEditedObject(field.get());
            for (const bool gone : {false, true, false}) {
                editor->activate();
                if (gone) {
                    delete editor->getWidget();
                    field->touch();
                    processSensors();
                    editor->activate();
                    QVERIFY(!editor->isVisible());
                    editor->deactivate();
                }
                editor->load();
                processSensors();
                editor->activate();
                editor->getWidget()->findChild<QPushButton*>("m_ignoreButton")->click();
                QVERIFY(editor->isVisible() && field->isIgnored());
                field->setIgnored(FALSE);
                editor->deactivate();
            }
        }
        KlvServices::getInstance()->getUndoStack()->clear();
        plugin.unload();
    }
};

KLV_TEST_MAIN(tst_AllEditors)
#include "tst_AllEditors.moc"
