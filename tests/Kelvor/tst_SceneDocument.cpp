#include "Scene/SceneDocument.h"
#include "TestMain.h"

#include <Inventor/SoInput.h>
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/lists/SbStringList.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSphere.h>

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>

namespace {

const QByteArray inventor = "#Inventor V2.1 ascii\n";

void ownHandler(const SoError*, void* count)
{
    ++*static_cast<int*>(count);
}

} // namespace

class tst_SceneDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void refusesBadFiles_data();
    void refusesBadFiles();
    void tellsWhatWasWrong_data();
    void tellsWhatWasWrong();
    void findsFilesBesideTheScene();
    void savesAndReadsBack_data();
    void savesAndReadsBack();
    void keepsTheOldFileWhenSavingFails();
    void releasesWhatItShowed();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    QString write(const QString& name, const QByteArray& content) const;
    QByteArray read(const QString& name) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SceneDocument> m_document;
    QString m_error;
    int m_strayErrors = 0;
};

void tst_SceneDocument::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    m_folder = std::make_unique<QTemporaryDir>();
    m_document = std::make_unique<SceneDocument>();
    m_strayErrors = 0;
    SoReadError::setHandlerCallback(ownHandler, &m_strayErrors);
}

void tst_SceneDocument::cleanup()
{
    QVERIFY(SoReadError::getHandlerCallback() == ownHandler && SoReadError::getHandlerData() == &m_strayErrors);
    QCOMPARE(m_strayErrors, 0);
    const int folders = SoInput::getDirectories().getLength();
    const bool hadFile = !m_document->fileName().isEmpty();
    m_document.reset();
    QCOMPARE(SoInput::getDirectories().getLength(), folders - (hadFile ? 1 : 0));
}

QString tst_SceneDocument::write(const QString& name, const QByteArray& content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write a test file");
    return file.fileName();
}

QByteArray tst_SceneDocument::read(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
}

void tst_SceneDocument::refusesBadFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QByteArray junk("#Inventor V2.1 binary\n\1\2\3\4\5 junk");
    QTest::newRow("empty") << QByteArray("") << "it is empty";
    QTest::newRow("text") << QByteArray("Dear reader,\n") << "not an Inventor or VRML file";
    QTest::newRow("binary") << QByteArray("\x7f\x45LF\0\0\xff\xfe", 8) << "not an Inventor or VRML file";
    QTest::newRow("foreign magic") << QByteArray("MMhello") << "not an Inventor or VRML file";
    QTest::newRow("junk in binary") << junk << "file probably corrupt";
    QTest::newRow("truncated") << inventor + "Separator { Cube { width 2 } " << "Premature end of file (line 2)";
    QTest::newRow("truncated later") << inventor + "Cube {}\nCone {\n" << "got EOF for Cone (line 4)";
    QTest::newRow("field") << inventor + "Separator {\n Cube { widht 3 } }" << "\"widht\" in \"Cube\" (line 3)";
    QTest::newRow("percent") << inventor + "Separator { %1 %2 }" << "(line 2)";
    QTest::newRow("vrml node") << QByteArray("#VRML V2.0 utf8\nBlah {}\n") << "(line 2)";
}

void tst_SceneDocument::refusesBadFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    QVERIFY2(m_document->open(write("good.iv", inventor + "Cone {}"), &m_error), qPrintable(m_error));
    SoNode* const before = m_document->root();
    QSignalSpy changed(m_document.get(), &SceneDocument::rootChanged);
    const QString file = write("bad %1.iv", content);
    const QPair<QString, QString> tries[] = {{file, reason},
                                             {path("none.iv"), "there is no such file"},
                                             {m_folder->path(), "it is a folder"},
                                             {"/dev/null", "no regular file"}};
    for (const auto& [name, why] : tries) {
        QVERIFY(!m_document->open(name, &m_error));
        QVERIFY2(m_error.contains(name) && m_error.contains(why), qPrintable(m_error));
        QVERIFY2(m_error.endsWith('.') && !m_error.contains('\n') && m_error.size() < 500, qPrintable(m_error));
    }
    QVERIFY(!m_document->open(file, nullptr));
    QCOMPARE(m_document->root(), before);
    QCOMPARE(m_document->fileName(), path("good.iv"));
    QCOMPARE(changed.count(), 0);
}

void tst_SceneDocument::tellsWhatWasWrong_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("warnings");
    const QByteArray trailing = inventor + "Separator { Cone {} }\n} Cube {}\n";
    QTest::newRow("nothing") << inventor + "Separator { Cone {} }\n\n# end\n" << QStringList();
    QTest::newRow("only a header") << inventor << QStringList();
    QTest::newRow("file") << inventor + "File { name \"none.iv\" }\nCone {}" << QStringList("'none.iv'");
    QTest::newRow("trailing") << trailing << QStringList("goes on after the end");
    QTest::newRow("trailing, again") << trailing << QStringList("goes on after the end");
}

void tst_SceneDocument::tellsWhatWasWrong()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, warnings);
    QVERIFY2(m_document->open(write("scene.iv", content), &m_error), qPrintable(m_error));
    QCOMPARE(m_document->warnings().size(), warnings.size());
    for (int i = 0; i < warnings.size(); ++i)
        QVERIFY2(m_document->warnings()[i].contains(warnings[i]), qPrintable(m_document->warnings()[i]));
    write("scene.iv", inventor + "Cone {}");
    QVERIFY(m_document->reload(&m_error));
    QCOMPARE(m_document->warnings(), QStringList());
}

void tst_SceneDocument::findsFilesBesideTheScene()
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
    QVERIFY(!m_document->save(compressed, &m_error)); // and would not be compressed any more
    QVERIFY(m_document->open(compressed, &m_error));

    // A name that is edited later is looked for there, too.
    write("sub/other.iv", inventor + "Sphere { radius 3 }");
    auto* const file = static_cast<SoGroup*>(m_document->root())->getChild(0);
    file->set("name \"other.iv\"");
    box.apply(m_document->root());
    QCOMPARE(box.getBoundingBox().getMax()[0], 3.0f);
}

void tst_SceneDocument::savesAndReadsBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("savedAs");
    QTest::addColumn<QByteArray>("holds");
    const QByteArray vrml = "#VRML V2.0 utf8\nPROTO My [ field SFColor c 1 0 0 ] { Material { diffuseColor IS c } }\n"
                            "DEF S Shape { geometry Box {} }\nTransform { children [ USE S ] }\n"
                            "DEF T TimeSensor {}\nDEF P PositionInterpolator { key [0,1] keyValue [0 0 0, 1 1 1] }\n"
                            "Shape { appearance Appearance { material My { c 0 1 0 } } }\n"
                            "ROUTE T.fraction_changed TO P.set_fraction\n";
    const QByteArray iv = inventor + "Separator { DEF M Material {} Cube {} Group { USE M } Text2 { string \"\303\251\" } }";
    const QByteArray old = "#VRML V1.0 ascii\nSeparator { AsciiText { string \"a\" } Cube {} }";
    QTest::newRow("inventor") << "a.iv" << iv << inventor << QByteArray("USE M");
    QTest::newRow("several at the top") << "a.iv" << inventor + "Cone {}\nCube {}\n" << inventor << QByteArray("Cube");
    QTest::newRow("vrml 2") << "a.wrl" << vrml << QByteArray("#VRML V2.0 utf8\n")
                            << QByteArray("ROUTE T.fraction_changed TO P.set_fraction");
    QTest::newRow("vrml 2 by another name") << "a.iv" << vrml << QByteArray("#VRML V2.0 utf8\n")
                                            << QByteArray("USE S");
    QTest::newRow("vrml 2 in a group") << "a.wrl" << QByteArray("#VRML V2.0 utf8\nDEF G Group { children DEF A Shape {} }")
                                       << QByteArray("#VRML V2.0 utf8\n") << QByteArray("DEF A Shape");
    QTest::newRow("vrml 1") << "a.wrl" << old << QByteArray("#VRML V1.0 ascii\n") << QByteArray("AsciiText");
    QTest::newRow("inventor in a wrl") << "a.wrl" << iv << inventor << QByteArray("USE M");
}

void tst_SceneDocument::savesAndReadsBack()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QVERIFY2(m_document->open(write("source", content), &m_error), qPrintable(m_error));
    write(name, "something older");
    QVERIFY2(m_document->save(path(name), &m_error), qPrintable(m_error));
    QCOMPARE(m_document->fileName(), path(name));
    const QByteArray saved = read(name);
    QTEST(saved.left(saved.indexOf('\n') + 1), "savedAs");
    QFETCH(QByteArray, holds);
    QVERIFY2(saved.contains(holds), saved.constData());
    QVERIFY(m_document->save(path("again"), &m_error));
    QCOMPARE(read("again"), saved); // saving did not change the scene

    QVERIFY2(m_document->open(path(name), &m_error), qPrintable(m_error));
    QCOMPARE(m_document->warnings(), QStringList());
    QVERIFY(m_document->save(path(name), &m_error));
    QCOMPARE(read(name), saved);
}

void tst_SceneDocument::keepsTheOldFileWhenSavingFails()
{
    QVERIFY(!m_document->save(path("a.iv"), &m_error));
    QVERIFY(!m_document->reload(&m_error));
    auto* const root = new SoSeparator;
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
    QCOMPARE(read("old.iv"), QByteArray("old"));
    QCOMPARE(m_document->fileName(), QString());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList("old.iv"));
}

void tst_SceneDocument::releasesWhatItShowed()
{
    auto* const root = new SoSeparator;
    root->ref();
    connect(m_document.get(), &SceneDocument::rootChanged, this, [&](SoNode* now) {
        if (now != root)
            QCOMPARE(root->getRefCount(), 2); // listeners can still let go of it
    });
    m_document->setRoot(root);
    QVERIFY(m_document->open(write("a.iv", inventor + "Cone {}"), &m_error));
    QCOMPARE(root->getRefCount(), 1);
    m_document->setRoot(root);
    m_document->setRoot(nullptr);
    QCOMPARE(root->getRefCount(), 1);
    root->unref();
}

KLV_TEST_MAIN(tst_SceneDocument)
#include "tst_SceneDocument.moc"
