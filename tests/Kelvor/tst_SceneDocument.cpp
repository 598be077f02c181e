#include "Scene/SceneDocument.h"
#include "Scene/TextureImages.h"
#include "TestMain.h"

#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/lists/SbStringList.h>

#include <csignal>
#include <sys/resource.h>

namespace {

const QByteArray inventor("#Inventor V2.1 ascii\n");

int heardErrors = 0;

void ownHandler(const SoError*, void*)
{
    ++heardErrors;
}

} // namespace

class tst_SceneDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        m_folder = std::make_unique<QTemporaryDir>();
        m_document = std::make_unique<SceneDocument>();
        m_folders = SoInput::getDirectories().getLength();
        SoReadError::setHandlerCallback(ownHandler, this);
    }

    void cleanup()
    {
        QVERIFY(SoReadError::getHandlerCallback() == ownHandler && SoReadError::getHandlerData() == this);
        m_document.reset();
        QCOMPARE(SoInput::getDirectories().getLength(), m_folders);
    }

    void refusesBadFiles()
    {
        QVERIFY2(m_document->open(write("good.iv", inventor + "Cone {}"), &m_error), qPrintable(m_error));
        SoNode* const before = m_document->root();
        QSignalSpy changed(m_document.get(), &SceneDocument::rootChanged);
        const QPair<QString, QString> tries[] = {
            {path("none %1.iv"), "there is no such file"},
            {m_folder->path(), "it is a folder"},
            {"/dev/null", "no regular file"},
            {write("empty", ""), "it is empty"},
            {write("binary", QByteArray("\x7f\x45LF\0\0\xff\xfe", 8)), "not an Inventor or VRML file"},
            {write("junk", "#Inventor V2.1 binary\n\1\2\3\4\5 junk"), "file probably corrupt"},
            {write("cut", inventor + "Cone {}\nSeparator { Cube { width 2 } "),
             "Premature end of file (line 3)"},
            {write("field", inventor + "Separator {\n Cube { widht 3 } }"),
             "\"widht\" in \"Cube\" (line 3)"}};
        for (const auto& [name, why] : tries) {
            QVERIFY(!m_document->open(name, &m_error));
            QVERIFY2(m_error.startsWith('"' + name + '"') && m_error.contains(why) && m_error.endsWith('.') &&
                         !m_error.contains('\n'),
                     qPrintable(m_error));
        }
        QVERIFY(heardErrors >= 3); // Whoever shows errors gets them as well.
        QCOMPARE(m_document->root(), before);
        QCOMPARE(m_document->fileName(), path("good.iv"));
        QCOMPARE(changed.count(), 0);
    }

    void readingCanBeCancelled()
    {
        QVERIFY2(m_document->open(write("good.iv", inventor + "Cone {}"), &m_error), qPrintable(m_error));
        SoNode* const before = m_document->root();
        const QString large = write("large.iv", inventor + "Separator {" +
                                                    QByteArray("Cube { width 2 }\n").repeated(200000) + "}");
        double share = 0;
        const auto cancelLater = [&share](double now) {
            const bool grows = now > std::exchange(share, now) && now <= 1;
            return grows && now < 0.3;
        };
        QVERIFY(!m_document->open(large, &m_error, cancelLater) && m_error.isEmpty());
        QVERIFY(share >= 0.3 && share < 0.9);
        QCOMPARE(m_document->root(), before);
        QCOMPARE(m_document->fileName(), path("good.iv"));
        QVERIFY(m_document->open(large, &m_error, [](double) { return true; }));
    }

    void tellsWhatWasWrong()
    {
        const QByteArray trailing = inventor + "Separator { Cone {} }\n} Cube {}\n";
        const QPair<QByteArray, QStringList> tries[] = {
            {inventor + "File { name \"none.iv\" }\nCone {}", {"'none.iv'"}},
            {trailing, {"goes on after the end"}},
            {trailing, {"goes on after the end"}}, // again: Coin itself tells it only once
            {inventor + "Separator { Cone {} }\n\n# end\n", {}}};
        for (const auto& [content, warnings] : tries) {
            QVERIFY2(m_document->open(write("scene.iv", content), &m_error), qPrintable(m_error));
            QCOMPARE(m_document->warnings().size(), warnings.size());
            QCOMPARE(m_document->canOverwrite(), warnings.isEmpty()); // what was not read would be lost
            QCOMPARE(m_document->warnings().filter(warnings.value(0)).size(), warnings.size());
        }
    }

    void findsFilesBesideTheScene()
    {
        QDir(m_folder->path()).mkdir("sub");
        write("sub/part.iv", inventor + "Sphere { radius 7 }");
        const QString compressed = path("sub/scene.iv.gz");
        {
            SoOutput output;
            output.setCompression("GZIP", 0.5f);
            QVERIFY(output.openFile(QFile::encodeName(compressed).constData()));
            output.write("#Inventor V2.1 ascii\nSeparator { File { name \"part.iv\" } }");
        }
        QVERIFY2(m_document->open(compressed, &m_error), qPrintable(m_error));
        QCOMPARE(m_document->warnings(), QStringList());
        SoGetBoundingBoxAction box{SbViewportRegion()};
        box.apply(m_document->root());
        QCOMPARE(box.getBoundingBox().getMax()[0], 7.0f);
        QVERIFY(!m_document->save(compressed, &m_error)); // it would not be compressed any more
        QVERIFY(!m_document->canOverwrite());
        write("sub/other.iv", inventor + "Sphere { radius 3 }");
        static_cast<SoGroup*>(m_document->root())->getChild(0)->set("name \"other.iv\"");
        box.apply(m_document->root());
        QCOMPARE(box.getBoundingBox().getMax()[0], 3.0f);
    }

    void texturesReadWhatQtReads()
    {
        const TextureImages textureImages;
        QImage picture(3, 2, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.setPixelColor(2, 1, Qt::blue);
        QVERIFY(picture.save(path("picture.png")));
        QVERIFY(
            m_document->open(write("a.iv", inventor + "Texture2 { filename \"picture.png\" }"), &m_error));
        auto* texture = static_cast<SoTexture2*>(static_cast<SoSeparator*>(m_document->root())->getChild(0));
        QCOMPARE(textOf(texture->image),
                 QByteArray("3 2 3\n0xff0000 0xff0000 0xff 0xff0000 0xff0000 0xff0000 "));
    }

    void savesAndReadsBack()
    {
        const struct
        {
            QByteArray header, content, holds;
        } rows[] = {{inventor,
                     "Separator { DEF M Material {} Group { USE M } Text2 { string \"\303\251\" } }",
                     "USE M"},
                    {"#VRML V1.0 ascii\n", "Separator { AsciiText { string \"a\" } Cube {} }", "AsciiText"},
                    {"#VRML V2.0 utf8\n",
                     "PROTO My [ field SFColor c 1 0 0 ] { Material { diffuseColor IS c } }\n"
                     "Shape { appearance Appearance { material My { c 0 1 0 } } }\n"
                     "DEF S Shape { geometry Box {} }\nTransform { children [ USE S ] }\n"
                     "DEF T TimeSensor {}\nDEF P PositionInterpolator { key [0,1] keyValue [0 0 0, 1 1 1] }\n"
                     "ROUTE T.fraction_changed TO P.set_fraction\n",
                     "ROUTE T.fraction_changed TO P.set_fraction"},
                    {"#VRML V2.0 utf8\n", "DEF G Group { children DEF A Shape {} }", "DEF A Shape"}};
        for (const auto& [header, content, holds] : rows) {
            QVERIFY2(m_document->open(write("source", header + content), &m_error), qPrintable(m_error));
            write("a.iv", "something older");
            QVERIFY2(m_document->save(path("a.iv"), &m_error), qPrintable(m_error));
            QCOMPARE(m_document->fileName(), path("a.iv"));
            const QByteArray saved = read("a.iv");
            QVERIFY2(saved.startsWith(header) && saved.contains(holds), saved.constData());
            QVERIFY(m_document->save(path("again"), &m_error));
            QCOMPARE(read("again"), saved); // saving did not change the scene
            QVERIFY2(m_document->open(path("again"), &m_error) && m_document->warnings().isEmpty(),
                     qPrintable(m_error));
            QVERIFY(m_document->save(path("again"), &m_error));
            QCOMPARE(read("again"), saved);
        }
    }

    void releasesWhatIsConnectedFromOutside()
    {
        write("a.iv", "#Inventor V2.1 ascii\nSeparator { Cube { width 2 = DEF Outside Sphere {"
                      " radius 3 = DEF Further Cone { height 4 } . height } . radius } }");
        QVERIFY(m_document->open(path("a.iv"), &m_error));
        QVERIFY(m_document->save(path("b.iv"), &m_error));
        QVERIFY(SoNode::getByName("Outside") && SoNode::getByName("Further"));
        m_document->setRoot(nullptr);
        QVERIFY(!SoNode::getByName("Outside") && !SoNode::getByName("Further"));
    }

    void keepsTheOldFileWhenSavingFails()
    {
        auto* const root = new SoSeparator;
        root->ref();
        for (int i = 0; i < 5000; ++i)
            root->addChild(new SoSphere);
        m_document->setRoot(root);
        write("old.iv", "old");

        std::signal(SIGXFSZ, SIG_IGN);
        rlimit normal{};
        getrlimit(RLIMIT_FSIZE, &normal);
        rlimit full = normal;
        full.rlim_cur = 10000; // like a disk without space
        setrlimit(RLIMIT_FSIZE, &full);
        const bool saved = m_document->save(path("old.iv"), &m_error);
        setrlimit(RLIMIT_FSIZE, &normal);
        QVERIFY(!saved);
        QVERIFY2(m_error.contains("old.iv") && m_error.endsWith('.'), qPrintable(m_error));
        QVERIFY(!m_document->save(path("none/a.iv"), &m_error));
        QVERIFY(!m_document->save(m_folder->path(), &m_error));
        // What Coin writes without a word and does not read, or not as it was.
        static_cast<SoSphere*>(root->getChild(0))->radius = std::numeric_limits<float>::infinity();
        QVERIFY(!m_document->save(path("old.iv"), &m_error) && m_error.contains("read again"));
        root->removeChild(0);
        auto* const info = new SoInfo;
        info->string = "C:\\";
        root->addChild(info);
        QVERIFY(!m_document->save(path("old.iv"), &m_error) && m_error.contains("Info.string"));
        info->string = "";
        auto* const paths = new SoPathSwitch;
        paths->path = new SoPath(root->getChild(0));
        root->addChild(paths);
        QVERIFY(!m_document->save(path("old.iv"), &m_error) && m_error.contains("PathSwitch.path"));
        QCOMPARE(read("old.iv"), QByteArray("old"));
        QCOMPARE(m_document->fileName(), QString());
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList("old.iv"));
        QVERIFY(m_document->open(write("old.iv", inventor + "Cone {}"), &m_error));
        QCOMPARE(root->getRefCount(), 1);
        root->unref();
    }

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    QString write(const QString& name, const QByteArray& content) const
    {
        QFile file(path(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName()
                                                                                        : QString();
    }
    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SceneDocument> m_document;
    QString m_error;
    int m_folders = 0;
};

KLV_TEST_MAIN(tst_SceneDocument)
#include "tst_SceneDocument.moc"
