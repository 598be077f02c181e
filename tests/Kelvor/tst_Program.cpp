#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

/// Runs the program itself, as a person at a shell does.
class tst_Program : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    QString path(const QString& name) const { return m_folder.filePath(name); }

    struct Outcome
    {
        int exitCode;
        QString output;
        QString error;
    };
    Outcome run(const QStringList& arguments)
    {
        QProcess program;
        program.start(KELVOR_PROGRAM, arguments);
        if (!program.waitForFinished(60000) || program.exitStatus() != QProcess::NormalExit)
            return {-1, {}, program.errorString()};
        // What Qt's offscreen platform says of itself is not the program's.
        QString error = QString::fromUtf8(program.readAllStandardError());
        error.remove("This plugin does not support propagateSizeHints()\n");
        return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()), error};
    }

private Q_SLOTS:
    void initTestCase()
    {
        QFile scene(path("scene.iv"));
        QVERIFY(scene.open(QFile::WriteOnly));
        scene.write("#Inventor V2.1 ascii\nSeparator { DEF Gold Material { transparency 0.5 } Cone {} Cone { "
                    "height 4 } }");
        QFile broken(path("broken.iv"));
        QVERIFY(broken.open(QFile::WriteOnly));
        broken.write("#Inventor V2.1 ascii\nSeparator { Cone {");
        QFile cyclic(path("cyclic.iv"));
        QVERIFY(cyclic.open(QFile::WriteOnly));
        cyclic.write("#Inventor V2.1 ascii\nDEF A Separator { Cube {} Group { USE A } }");
        QFile deep(path("deep.iv"));
        QVERIFY(deep.open(QFile::WriteOnly));
        deep.write("#Inventor V2.1 ascii\n" + QByteArray("Separator {").repeated(20000) +
                   QByteArray(20000, '}'));
    }

    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void pictures_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing open") << QStringList();
        QTest::newRow("scene") << QStringList{"scene.iv"};
        QTest::newRow("field of a named node") << QStringList{"scene.iv", "--select", "Gold.transparency"};
        QTest::newRow("node by type and number") << QStringList{"scene.iv", "--select", "Cone[1]"};
        QTest::newRow("profile") << QStringList{"scene.iv", "--profile", "Default"};
    }

    void pictures()
    {
        QFETCH(QStringList, arguments);
        const QString picture = path("picture.png");
        QFile::remove(picture);
        arguments.replaceInStrings(QRegularExpression("^(.*\\.iv)$"), path("\\1"));
        const Outcome outcome = run(arguments << "--screenshot" << picture);
        QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.error));
        QCOMPARE(QImage(picture).size(), QSize(1360, 840));
    }

    void failures_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("mentions");
        QTest::newRow("scene missing") << QStringList{"missing.iv"} << "missing.iv";
        QTest::newRow("scene broken") << QStringList{"broken.iv"} << "broken.iv";
        QTest::newRow("scene holds itself") << QStringList{"cyclic.iv"} << "itself";
        QTest::newRow("scene too deep") << QStringList{"deep.iv"} << "deeply";
        QTest::newRow("node missing")
            << QStringList{"scene.iv", "--select", "Silver.transparency"} << "Silver";
        QTest::newRow("field missing") << QStringList{"scene.iv", "--select", "Gold.gloss"} << "gloss";
        QTest::newRow("number too high") << QStringList{"scene.iv", "--select", "Cone[2]"} << "Cone";
        QTest::newRow("selection without scene") << QStringList{"--select", "Gold"} << "Gold";
        QTest::newRow("plug-in missing") << QStringList{"--plugin", "nothing.so"} << "nothing.so";
        QTest::newRow("plug-in is a scene") << QStringList{"--plugin", "scene.iv"} << "scene.iv";
        QTest::newRow("plug-in without name") << QStringList{"scene.iv", "--plugin"} << "--plugin";
        QTest::newRow("plug-in folder missing") << QStringList{"--plugin-path", "nowhere"} << "nowhere";
        QTest::newRow("empty selection") << QStringList{"scene.iv", "--select="} << "--select";
        QTest::newRow("profile missing") << QStringList{"--profile", "Nobody's"} << "Nobody's";
        QTest::newRow("option unknown") << QStringList{"--colour"} << "colour";
        QTest::newRow("two scenes") << QStringList{"scene.iv", "scene.iv"} << "2";
        QTest::newRow("picture not written")
            << QStringList{"scene.iv", "--screenshot", "no/such/folder.png"} << "folder.png";
    }

    void failures()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, mentions);
        arguments.replaceInStrings(QRegularExpression("^(.*\\.iv)$"), path("\\1"));
        if (!arguments.contains("--screenshot"))
            arguments = QStringList{"--screenshot", path("unwanted.png")} + arguments;
        const Outcome outcome = run(arguments);
        QCOMPARE(outcome.exitCode, 1);
        QVERIFY2(outcome.error.contains(mentions), qPrintable(outcome.error));
        QVERIFY2(outcome.error.endsWith(".\n") && outcome.error.count('\n') == 1, qPrintable(outcome.error));
        QVERIFY(!QFile::exists(path("unwanted.png")));
    }

    void helpAndVersion()
    {
        const Outcome help = run({"--help"});
        QCOMPARE(help.exitCode, 0);
        for (const char* option :
             {"--profile", "--plugin ", "--plugin-path", "--select", "--screenshot", "[scene]"})
            QVERIFY2(help.output.contains(QLatin1String(option)), option);
        QCOMPARE(run({"--version"}).output, QString("kelvor " KELVOR_VERSION "\n"));
    }
};

QTEST_GUILESS_MAIN(tst_Program)
#include "tst_Program.moc"
