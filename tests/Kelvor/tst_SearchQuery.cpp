#include "Search/TreeSearch.h"

#include "NoteCommand.h"
#include "TestMain.h"

namespace {

const char scene[] = R"(Separator {
    DEF Gold Material { diffuseColor [ 1 0 0, 1 0.8 0 ] transparency [ 0, 0.6 ] }
    DEF Glass Material { transparency 0.1 ~ }
    DEF Thin DrawStyle { style LINES linePattern 0xf0 }
    DEF Label Text2 { string [ "Red box, large", "" ] }
    DEF Turn Rotation { rotation 0 0 1 0.3 }
    DEF Lamp PointLight { on FALSE location 0 -3 0 }
    DEF Both Group { DEF Box Cube { width 2 = USE Lamp . intensity } }
    USE Both
    DEF Aim Probe { fields [ SFFloat x ] x 1 }
})";

using Edit = std::function<void(SoSeparator*)>;

/// What a search finds, by name where there is one.
QString found(SoNode* root, const QString& line)
{
    TreeSearch search;
    search.start(root, SearchQuery(line));
    QSignalSpy progressed(&search, &TreeSearch::progressed);
    while (search.state() == TreeSearch::State::Running)
        progressed.wait();
    QStringList names;
    for (const TreeSearch::Match& match : search.matches()) {
        const SbName name = match.node->getName();
        names += QString::fromUtf8((name.getLength() ? name : match.node->getTypeId().getName()).getString());
    }
    return names.join(QLatin1Char(' '));
}

} // namespace

class tst_SearchQuery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void findsNodes()
    {
        SoSeparator* root = sceneOf(scene);
        root->ref();
        // clang-format off
        const std::pair<const char*, const char*> rows[] = {
            {"gL", "Glass"}, {"transparency", "Gold Glass"}, {"sep", "Separator"},
            {"name:o", "Gold Both Box Both"}, {"type:Shape", "Label Box"},
            {"TYPE:sogroup", "Separator Both Both"}, {"type:ateri", "Gold Glass"}, {"field:Width", "Box"},
            {"field:wid", ""}, {"value:LARGE", "Label"}, {"value:-3", "Lamp"}, {"transparency>0.5", "Gold"},
            {"transparency<=0.1", "Gold Glass"}, {"transparency>0.1", "Gold"}, {"transparency=0.1", "Glass"},
            {"transparency!=0", "Gold Glass"}, {"on=false", "Lamp"}, {"linePattern=0xf0 style=lines", "Thin"},
            {"style!=LINES", ""}, {"location<-2", "Lamp"}, {"diffuseColor=\"1 .8 0\"", "Gold"},
            {"diffuseColor=[1,0,0,1,0.8,0]", "Gold"}, {"diffuseColor!=\"1 0 0, 1 0.8 0\"", "Glass"},
            {"rotation=\"0 0 1 0.3\"", "Turn"}, {"string=\"red box, large\"", "Label"},
            {"string=\"\"", "Label"}, {"width=2", "Box"}, {"is:ignored", "Glass"}, {"is:Connected", "Box"},
            {"is:set type:Light", "Lamp"}, {"is:shared", "Both Both"}, {"is:named -is:set -type:Group", ""},
            {"-is:named", "Separator"}, {"\"red box", ""}, {"type:soteri", ""}, {"SoMat", "Gold Glass"},
            {"specularColor=0", "Gold Glass"}, {"specularColor!=0", ""}, {"rotation>0.2", "Turn"},
            {"type:probe", "Aim"}, {"prob", "Aim"}};
        // clang-format on
        for (const auto& [line, expected] : rows)
            QVERIFY2(found(root, line) == QLatin1String(expected),
                     qPrintable(QStringLiteral("%1: %2").arg(line, found(root, line))));
        QCOMPARE(found(nullptr, "gold"), QString());
        root->unref();
    }

    void saysWhatIsNotUnderstood()
    {
        // clang-format off
        const std::pair<const char*, const char*> rows[] = {
            {"is:chnged", "is:changed, is:set"}, {"nme:gold", "name:, type:"}, {"gold type:", "type:"},
            {"width>", "width>"}, {"width>big", "big"}, {">0.5", ">0.5"}, {"Cube.width=2", "Cube.width"},
            {"-", "-"}, {"\"\"", "\"\""}};
        // clang-format on
        for (const auto& [line, part] : rows) {
            const SearchQuery query{QString(line)};
            QVERIFY2(query.error().contains(part) && query.isEmpty(), line);
        }
        QVERIFY(SearchQuery("  ").isEmpty() && SearchQuery("  ").error().isEmpty());
    }

    void findsWhatWasChanged()
    {
        SoSeparator* root = sceneOf(scene);
        root->ref();
        auto* cube = static_cast<SoCube*>(SoNode::getByName("Box"));
        edit(&cube->height, [cube] { cube->height = 5; });
        QCOMPARE(found(root, "is:changed"), QString("Box"));
        KlvServices::getInstance()->getUndoStack()->undo();
        QCOMPARE(found(root, "is:changed"), QString());
        KlvServices::getInstance()->getUndoStack()->clear();
        root->unref();
    }

    void goesOnWhenTheGraphChanges_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QList<int>>("expected"); // where the node in the second group is found
        const auto row = [](const char* name, const QList<int>& expected, const Edit& edit) {
            QTest::newRow(name) << edit << expected;
        };
        row("all gone", {}, [](auto* root) { root->removeAllChildren(); });
        row("place gone", {0, 0}, [](auto* root) { root->removeChild(0); });
        row("replaced", {1, 0}, [](auto* root) { root->replaceChild(0, new SoCube); });
        row("inserted before", {2, 0}, [](auto* root) { root->insertChild(new SoCube, 0); });
        row("into itself", {1, 0},
            [](auto* root) { static_cast<SoGroup*>(root->getChild(0))->addChild(root); });
    }

    void goesOnWhenTheGraphChanges()
    {
        // The search stands in the first group when its first turn is over.
        QFETCH(Edit, edit);
        QFETCH(QList<int>, expected);
        auto* root = new SoSeparator;
        root->ref();
        auto* large = new SoSeparator;
        auto* small = new SoSeparator;
        root->addChild(large);
        root->addChild(small);
        for (int i = 0; i < 200'000; ++i)
            large->addChild(new SoCube);
        auto* last = new SoCube;
        last->setName("Last");
        small->addChild(last);
        TreeSearch search;
        QSignalSpy progressed(&search, &TreeSearch::progressed);
        search.start(root, SearchQuery("name:last"));
        QVERIFY(progressed.wait());
        QCOMPARE(search.state(), TreeSearch::State::Running);
        edit(root);
        for (double progress = 0; search.state() == TreeSearch::State::Running; progressed.wait()) {
            QVERIFY(search.progress() >= progress);
            progress = search.progress();
        }
        QCOMPARE(search.matches().empty() ? QList<int>() : search.matches()[0].path, expected);
        QCOMPARE(search.progress(), 1.0);
        root->removeAllChildren();
        QCOMPARE(root->getRefCount(), 1); // the search has let go of everything
        root->unref();
    }
};

KLV_TEST_MAIN(tst_SearchQuery)
#include "tst_SearchQuery.moc"
