// kelvor_walk [--seed N] FILE|FOLDER…
//
// Opens scenes in the inspector, has the editor of every field of every node and engine show its field,
// commits what it shows, makes one random edit and undoes it: nothing of this may change the scene. One line
// for each difference; exit code 1 when there are any.

#include "FieldCopy.h"
#include "OffscreenInspector.h"

#include "Models/SceneChildren.h"
#include "Scene/SceneDocument.h"

#include <KlvExtender/KlvContainerRef.h>
#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/engines/SoNodeEngine.h>

#include <cstdio>
#include <random>

namespace {

const QStringList entries =
    QString("0;1;-1;7;2.5;-0.75;1e3;0x1F;TRUE;abc;\"a b\";x\\;1 2 3 4;[ 1, 2 ];Cube { };NULL;99999999999;~;")
        .split(';');
const Qt::Key moves[] = {Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End, Qt::Key_Down};

class Walk
{
public:
    explicit Walk(unsigned seed)
        : m_seed(seed)
    {
        s_current = this;
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
            s_current->check(unexpectedWarnings().match(message).hasMatch() ? message : QString());
        });
    }
    ~Walk() { qInstallMessageHandler(nullptr); }

    /// Goes through one file.
    void open(const QString& file)
    {
        QString error;
        m_place = m_file = file;
        m_random.seed(m_seed);
        if (!m_inspector.window->document()->open(file, &error)) {
            ++m_unreadable;
            std::printf("%s\n", qUtf8Printable(error));
            return;
        }
        ++m_files;
        collect(m_inspector.window->document()->root());
        // Writing a large scene for every node would take longer than all the rest.
        const size_t step = 1 + size_t(sceneText().size() >> 16);
        for (size_t first = 0; first < m_containers.size(); first += step) {
            const QByteArray before = sceneText();
            forEachField(first, first + step, &Walk::look);
            forEachField(first, first + step, &Walk::commit);
            const QByteArray after = sceneText();
            const auto place = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).second;
            if (after != before)
                check("the scene is written differently at " + after.mid(place - after.begin() - 20, 60));
            // Engines that count or remember what has passed through them do not go back with an undo, so
            // that only the edited field is looked at here.
            forEachField(first, first + step, &Walk::edit);
        }
        KlvServices::getInstance()->setSelectedNode(nullptr);
        m_containers.clear();
    }

    /// One line on all files; true when nothing was different.
    bool summarize() const
    {
        std::printf("%d files, %d fields, %d differences, %d unreadable\n", m_files, m_fields, m_differences,
                    m_unreadable);
        return m_differences == 0;
    }

private:
    /// Reports a difference, unless it is empty.
    void check(const QString& what)
    {
        if (what.isEmpty())
            return;
        ++m_differences;
        std::printf("%s: %s: %s (seed %u)\n", qUtf8Printable(m_file), qUtf8Printable(m_place),
                    qUtf8Printable(what.simplified()), m_seed);
    }

    /// A container and all that can be reached from it.
    void collect(SoFieldContainer* container)
    {
        const auto isKnown = [container](const KlvContainerRef& known) { return known.get() == container; };
        if (!container || std::any_of(m_containers.begin(), m_containers.end(), isKnown))
            return;
        m_containers.emplace_back(container);
        SoFieldList fields;
        container->getAllFields(fields);
        for (int i = 0; i < fields.getLength(); ++i) {
            // Bringing a connected field up to date for the first time changes how it is written.
            fields[i]->evaluate();
            const FieldSources sources(*fields[i]);
            for (int j = 0; j < sources.masters.getLength(); ++j)
                collect(sources.masters[j]->getContainer());
            if (sources.output) {
                collect(sources.output->getContainer());
                collect(sources.output->getNodeContainer());
            }
        }
        if (container->isOfType(SoNode::getClassTypeId())) {
            const SceneChildren children(static_cast<SoNode*>(container));
            for (int i = 0; i < children.count(); ++i)
                collect(children[i]);
        }
    }

    QByteArray sceneText() const
    {
        SoOutput output;
        output.setBuffer(std::malloc(1 << 16), 1 << 16, std::realloc);
        SoWriteAction(&output).apply(m_inspector.window->document()->root());
        void* text = nullptr;
        size_t size = 0;
        output.getBuffer(text, size);
        const std::unique_ptr<void, decltype(&std::free)> owner(text, std::free);
        return QByteArray(static_cast<const char*>(text), qsizetype(size));
    }

    void forEachField(size_t first, size_t end, void (Walk::*what)(SoField*))
    {
        for (size_t i = first; i < std::min(end, m_containers.size()); ++i) {
            SoFieldContainer* container = m_containers[i].get();
            SoFieldList fields;
            container->getAllFields(fields);
            for (int j = 0; j < fields.getLength(); ++j) {
                SbName name;
                container->getFieldName(fields[j], name);
                m_place = objectLabel(container) + QLatin1Char('.') + QString::fromUtf8(name.getString());
                (this->*what)(fields[j]);
            }
        }
    }

    void look(SoField* field)
    {
        ++m_fields;
        const FieldCopy before(field);
        if (!m_inspector.show(field))
            check(QStringLiteral("no editor"));
        check(before.difference());
    }

    /// Return and Tab in every input, and in the cells of the first and the last row.
    void commit(SoField* field)
    {
        const FieldCopy before(field);
        for (QWidget* input : OffscreenInspector::inputs(m_inspector.show(field))) {
            auto* table = qobject_cast<QTableWidget*>(input);
            for (int cell = 0; table && table->rowCount() > 0 && cell < 2 * table->columnCount(); ++cell) {
                if (OffscreenInspector::openCell(table, cell % 2 ? table->rowCount() - 1 : 0, cell / 2))
                    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            }
            input->setFocus(Qt::TabFocusReason);
            QTest::keyClick(input, Qt::Key_Return);
            QTest::keyClick(input, Qt::Key_Tab);
        }
        OffscreenInspector::settle();
        check(before.difference());
        if (m_inspector.history->canUndo())
            check("committing left in the history: " + m_inspector.history->undoText());
        m_inspector.history->clear();
    }

    void edit(SoField* field)
    {
        // Draggers and manipulators keep their fields in step with each other, to within rounding; Coin
        // divides by the step of a time counter.
        const QByteArray type = field->getContainer()->getTypeId().getName().getString();
        if (type.endsWith("Manip") || type.endsWith("Dragger") || m_place.endsWith(QLatin1String(".step")))
            return;
        const FieldCopy before(field);
        const QList<QWidget*> inputs = OffscreenInspector::inputs(m_inspector.show(field));
        if (inputs.isEmpty())
            return;
        QWidget* input = inputs.at(random(inputs.size()));
        const QString done = editInput(input);
        m_inspector.history->undo();
        OffscreenInspector::settle();
        const QString difference = before.difference() + m_inspector.history->undoText();
        if (!OffscreenInspector::isRecorded(*field, *input))
            copyFieldValue(*field, *before.value);
        else if (!difference.isEmpty())
            check(QStringLiteral("%1 and undo: %2").arg(done, difference));
        m_inspector.history->clear();
    }

    QString editInput(QWidget* input)
    {
        const QString entry = entries[random(entries.size())];
        const Qt::Key move = moves[random(std::size(moves))];
        const bool isSlider = input->inherits("QSlider");
        input->setFocus(Qt::TabFocusReason);
        auto* table = qobject_cast<QTableWidget*>(input);
        if (table &&
            !OffscreenInspector::openCell(table, random(table->rowCount()), random(table->columnCount())))
            return QString();
        if (table || input->inherits("QLineEdit") || input->inherits("QAbstractSpinBox")) {
            OffscreenInspector::enter(entry);
            return QStringLiteral("%1 in %2").arg(entry, input->objectName());
        }
        if (input->inherits("QComboBox") || (isSlider && random(2) == 0))
            QTest::keyClick(input, move);
        else
            QTest::mouseClick(input, Qt::LeftButton, {}, QPoint(isSlider ? random(input->width()) : 5, 5));
        QTest::keyClick(input, Qt::Key_Return);
        OffscreenInspector::settle();
        return QLatin1String(input->metaObject()->className()) + input->objectName();
    }

    int random(qsizetype count) { return count > 0 ? int(m_random() % unsigned(count)) : 0; }

    OffscreenInspector m_inspector;
    const unsigned m_seed;
    std::mt19937 m_random;
    std::vector<KlvContainerRef> m_containers; ///< in the order in which they were found
    QString m_file, m_place;
    int m_files = 0, m_fields = 0, m_differences = 0, m_unreadable = 0;
    static inline Walk* s_current = nullptr;
};

/// A file, or the scenes in a folder in the order of their names.
QStringList sceneFiles(const QString& name)
{
    QStringList files;
    QDirIterator entries(name, {"*.iv", "*.wrl", "*.iv.gz", "*.wrl.gz", "*.wrz"}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
        files << entries.next();
    files.sort();
    return QFileInfo(name).isDir() ? files : QStringList(name);
}

} // namespace

int main(int argc, char** argv)
{
    return OffscreenInspector::run(argc, argv, [](const QStringList& names, unsigned seed, int) {
        Walk walk(seed);
        for (const QString& name : names)
            for (const QString& file : sceneFiles(name))
                walk.open(file);
        return walk.summarize();
    });
}
