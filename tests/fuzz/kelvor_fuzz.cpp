// kelvor_fuzz [--seed N] [--count N]
//
// Enters random texts into the editors of all kinds of fields and gives the reader of profiles damaged files.
// One line for each fault; exit code 1 when there are any.

#include "FieldCopy.h"
#include "OffscreenInspector.h"

#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/lists/SoTypeList.h>

#include <cstdio>
#include <random>

namespace {

const QByteArrayList pieces =
    QByteArray(
        "0;-1;2.5;1e999;99999999999999999999;0x1F;nan;TRUE;FIRST;\";\\;[;];{;};(;|;,; ;\n;\t;#;Cube { };NULL;"
        "USE x;é;\xff;[[[[[[[[[[[[;null;:;true;")
        .split(';');

class Fuzz
{
public:
    explicit Fuzz(unsigned seed)
        : m_seed(seed)
        , m_random(seed)
    {
    }

    /// A file of profiles gives sentences and a store that works, whatever stands in it.
    void readProfiles(const QString& file)
    {
        const QByteArray entry = R"({"plugin": "P", "extension": "E", "active": true})";
        QByteArray text =
            R"({"format": 1, "profiles": [{"name": "A", "rule": "everything", "extensions": [)" + entry +
            R"(], "withheld": [{"dock": )" + entry + R"(, "editor": )" + entry +
            R"(}]}, {"name": "B", "rule": "console"}]})";
        if (random(50) == 0)
            text.insert(random(text.size()), QByteArray(100000, '['));
        text = mutated(text);
        QFile written(file);
        if (!written.open(QFile::WriteOnly) || written.write(text) != text.size())
            qFatal("%s", qUtf8Printable(written.errorString()));
        written.close();
        QByteArray contents[2];
        for (QByteArray& content : contents) {
            ProfileStore store(file);
            for (const QString& problem : store.problems())
                check(&content == contents && problem.endsWith(u'.'), text, problem.toUtf8());
            check(store.replace(store.entries(), 0).isEmpty(), text, "profiles cannot be written");
            QFile reading(file);
            content = reading.open(QFile::ReadOnly) ? reading.readAll() : QByteArray();
        }
        check(contents[0] == contents[1], text, "profiles do not come back as written");
    }

    /// A text that is entered is taken whole or not at all, and undone exactly.
    void enterText(const OffscreenInspector& inspector, SoType type)
    {
        const auto field = newField(type.getName().getString());
        const auto other = newField(type.getName().getString());
        static const int values[] = {0, 1, 2};
        static const SbName names[] = {"NONE", "FIRST", "SECOND"};
        for (SoField* made : {field.get(), other.get()}) {
            if (auto* choice = dynamic_cast<SoSFEnum*>(made))
                choice->setEnums(3, values, names);
            if (auto* choices = dynamic_cast<SoMFEnum*>(made))
                choices->setEnums(3, values, names);
        }
        if (field->isOfType(SoMField::getClassTypeId()))
            insertElements(static_cast<SoMField*>(field.get()), 0, 1 + random(3));
        QWidget* editor = inspector.show(field.get());
        const FieldCopy before(field.get());
        const QByteArray text = mutated(random(2) ? textOf(*field) : QByteArray());
        const QByteArray place = type.getName().getString() + QByteArray(" ") + text;
        const PostedErrors<SoReadError> errors;
        QWidget* input = editor->findChild<QTableWidget*>();
        if (input ? OffscreenInspector::openCell(static_cast<QTableWidget*>(input), 0, 0)
                  : (input = editor->findChild<QLineEdit*>()) != nullptr) {
            QApplication::clipboard()->setText(QString::fromUtf8(text));
            if (input->inherits("QLineEdit"))
                input->setFocus();
            for (const auto& keys :
                 {QKeySequence::SelectAll, QKeySequence::Paste, QKeySequence::InsertParagraphSeparator})
                QTest::keySequence(QApplication::focusWidget(), keys);
            OffscreenInspector::settle();
            // Rotations and planes are normalized as they are read, which moves their last digits.
            const QByteArray kind = type.getName().getString();
            const bool isExact = !kind.endsWith("Rotation") && !kind.endsWith("Plane");
            if (!identicalFields(*field, *before.value))
                check(setFieldFromText(other.get(), textOf(*field).constData()) &&
                          (!isExact || textOf(*field) == textOf(*other)),
                      place, "the text of the field gives another value: " + textOf(*other));
            else if (!errors.messages.isEmpty())
                check(before.difference().isEmpty(), place, "a refused text leaves a trace");
        }
        inspector.history->undo();
        OffscreenInspector::settle();
        if (input && OffscreenInspector::isRecorded(*field, *input))
            check(before.difference().isEmpty(), place, "undo: " + before.difference().toUtf8());
        KlvServices::getInstance()->setSelectedField(nullptr);
        inspector.history->clear();
    }

    int random(qsizetype count) { return int(m_random() % unsigned(count)); }
    bool isWell() const { return m_faults == 0; }

private:
    void check(bool ok, const QByteArray& input, const QByteArray& fault)
    {
        m_faults += !ok;
        if (!ok)
            std::printf("%s: %s (seed %u)\n", input.left(200).toPercentEncoding(" []{}\",:|()-").constData(),
                        fault.left(200).constData(), m_seed);
    }

    QByteArray mutated(QByteArray text)
    {
        for (int i = random(4); i >= 0; --i) {
            const int at = random(text.size() + 1);
            const int length = random(3) ? random(4) : random(text.size() + 1);
            text.replace(at, length, pieces[random(pieces.size())]);
        }
        return text;
    }

    const unsigned m_seed;
    std::mt19937 m_random;
    int m_faults = 0;
};

} // namespace

int main(int argc, char** argv)
{
    return OffscreenInspector::run(argc, argv, [](const QStringList&, unsigned seed, int count) {
        Fuzz fuzz(seed);
        const QTemporaryDir folder;
        for (int i = 0; i < count / 4; ++i)
            fuzz.readProfiles(folder.filePath(QString::number(i)));
        const OffscreenInspector inspector;
        SoTypeList types;
        SoType::getAllDerivedFrom(SoField::getClassTypeId(), types);
        for (int i = 0; i < count; ++i) {
            const SoType type = types[i % types.getLength()];
            if (type.canCreateInstance())
                fuzz.enterText(inspector, type);
        }
        return fuzz.isWell();
    });
}
