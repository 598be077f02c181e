#include "MarkdownReporter.h"
#include "Scene/SceneDocument.h"
#include "Scene/SensorPump.h"
#include "Window/HostPlugins.h"
#include "Window/MainWindow.h"

#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <functional>
#include <memory>

// From a key that changes a value to the editor that shows it and the request for a new picture.

namespace {

/// A material to be edited, among a number of other nodes.
class Scene
{
public:
    explicit Scene(int nodes)
        : m_root(new SoSeparator)
    {
        m_root->ref();
        m_root->addChild(m_material = new SoMaterial);
        SoSeparator* group = m_root;
        for (int i = 0; i < nodes; ++i) {
            if (i % 1000 == 0)
                m_root->addChild(group = new SoSeparator);
            group->addChild(new SoCube);
        }
    }
    ~Scene() { m_root->unref(); }

    SoSeparator* root() const { return m_root; }
    SoMaterial* material() const { return m_material; }

private:
    SoSeparator* m_root;
    SoMaterial* m_material;
};

/// A window in which the material's transparency is edited.
class Ways
{
public:
    virtual ~Ways() = default;
    virtual QLineEdit* input() = 0;
};

class Inspector : public Ways
{
public:
    explicit Inspector(Scene& scene)
    {
        m_window.plugins()->loadRemembered();
        m_window.plugins()->activateProfile();
        m_window.document()->setRoot(scene.root());
        m_window.show();
        KlvServices::getInstance()->setSelectedField(&scene.material()->shininess);
    }
    QLineEdit* input() override
    {
        for (KlvExtension* extension : KlvPluginsManager::getInstance()->getExtensions()) {
            auto* editor = qobject_cast<KlvEditor*>(extension);
            if (editor && editor->isActive() && editor->getEditedObject().toField())
                return editor->getWidget()->findChild<QLineEdit*>();
        }
        return nullptr;
    }

private:
    MainWindow m_window{MainWindow::Layout::Fixed};
};

/// The obvious way: whatever changes, everything that is shown is filled anew.
class FilledAnew : public Ways
{
public:
    explicit FilledAnew(Scene& scene)
        : m_scene(scene)
        , m_sensor([](void* self, SoSensor*) { static_cast<FilledAnew*>(self)->fill(); }, this)
    {
        auto* layout = new QVBoxLayout(&m_window);
        layout->addWidget(m_tree);
        layout->addWidget(m_fields);
        layout->addWidget(m_input);
        m_fields->setColumnCount(2);
        QObject::connect(m_input, &QLineEdit::textEdited, [this](const QString& text) {
            m_scene.material()->shininess.set(text.toUtf8().constData());
        });
        m_window.resize(1360, 840);
        m_window.show();
        fill();
        m_sensor.attach(scene.root());
    }
    QLineEdit* input() override { return m_input; }

private:
    void fill()
    {
        m_tree->clear();
        fillItem(new QTreeWidgetItem(m_tree), m_scene.root());
        m_tree->expandItem(m_tree->topLevelItem(0));
        SoFieldList fields;
        m_scene.material()->getFields(fields);
        m_fields->setRowCount(fields.getLength());
        for (int i = 0; i < fields.getLength(); ++i) {
            SbString text;
            fields[i]->get(text);
            m_fields->setItem(i, 1, new QTableWidgetItem(QString::fromUtf8(text.getString())));
        }
        m_input->update();
    }
    static void fillItem(QTreeWidgetItem* item, const SoNode* node)
    {
        item->setText(0, QString::fromUtf8(node->getTypeId().getName().getString()));
        if (const SoChildList* children = node->getChildren()) {
            for (int i = 0; i < children->getLength(); ++i)
                fillItem(new QTreeWidgetItem(item), (*children)[i]);
        }
    }

    Scene& m_scene;
    QWidget m_window;
    QTreeWidget* m_tree = new QTreeWidget;
    QTableWidget* m_fields = new QTableWidget;
    QLineEdit* m_input = new QLineEdit;
    SoNodeSensor m_sensor;
};

/// Notices when a widget is painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* watched) { watched->installEventFilter(this); }
    bool isPainted = false;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        isPainted |= event->type() == QEvent::Paint;
        return false;
    }
};

void press(QLineEdit* input, int key, const QString& text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(input, &event);
    }
}

template <class Way>
void keyToPicture(benchmark::State& state)
{
    Scene scene(static_cast<int>(state.range(0)));
    Way way(scene);
    QApplication::processEvents();
    QLineEdit* input = way.input();
    if (!input) {
        state.SkipWithError("no editor is shown");
        return;
    }
    bool requested = false;
    SoNodeSensor request([](void* data, SoSensor*) { *static_cast<bool*>(data) = true; }, &requested);
    request.attach(scene.root());
    PaintWatch watch(input);
    int digit = 0;
    for (auto _ : state) {
        state.PauseTiming();
        input->setText(QStringLiteral("0."));
        QApplication::processEvents();
        requested = watch.isPainted = false;
        digit = digit % 9 + 1;
        state.ResumeTiming();
        press(input, Qt::Key_0 + digit, QString::number(digit));
        while (!requested || !watch.isPainted)
            QApplication::processEvents();
        // What else the change has set off.
        QApplication::processEvents();
    }
}

const struct
{
    const char* name;
    void (*run)(benchmark::State&);
} ways[] = {{"inspector", keyToPicture<Inspector>}, {"everything filled anew", keyToPicture<FilledAnew>}};

} // namespace

int main(int argc, char** argv)
{
    SoDB::init();
    SoInteraction::init();
    const QApplication application(argc, argv);
    const SensorPump pump;
    benchmark::Initialize(&argc, argv);
    for (const auto& way : ways) {
        benchmark::RegisterBenchmark(("key to picture/" + std::string(way.name)).c_str(), way.run)
            ->RangeMultiplier(10)
            ->Range(100, 1000000)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }
    MarkdownReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
