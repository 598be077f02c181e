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
    /// Runs it with the scenes among the arguments taken from the folder.
    Outcome run(QStringList arguments)
    {
        arguments.replaceInStrings(QRegularExpression("^([^/]*\\.iv)$"), path("\\1"));
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
        const std::pair<const char*, QByteArray> files[] = {
            {"scene.iv", "Separator { DEF Gold Material { transparency 0.5 } Cone {} Cone { height 4 } }"},
            {"broken.iv", "Separator { Cone {"},
            {"cyclic.iv", "DEF A Separator { Cube {} Group { USE A } }"},
            {"deep.iv", QByteArray("Separator {").repeated(20000) + QByteArray(20000, '}')}};
        for (const auto& [name, scene] : files) {
            QFile file(path(name));
            QVERIFY(file.open(QFile::WriteOnly));
            file.write("#Inventor V2.1 ascii\n" + scene);
        }
    }

    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void pictures()
    {
        const QStringList rows[] = {{},
                                    {"scene.iv"},
                                    {"scene.iv", "--select", "Gold.transparency"},
                                    {"scene.iv", "--select", "Cone[1]"},
                                    {"scene.iv", "--profile", "Default"}};
        for (QStringList arguments : rows) {
            const QString picture = path("picture.png");
            QFile::remove(picture);
            const Outcome outcome = run(arguments << "--screenshot" << picture);
            QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.error));
            QCOMPARE(QImage(picture).size(), QSize(1360, 840));
        }
    }

    void failures()
    {
        // clang-format off
        const std::pair<QStringList, const char*> rows[] = {
            {{"missing.iv"}, "missing.iv"}, {{"broken.iv"}, "broken.iv"}, {{"cyclic.iv"}, "itself"},
            {{"deep.iv"}, "deeply"}, {{"scene.iv", "--select", "Silver.transparency"}, "Silver"},
            {{"scene.iv", "--select", "Gold.gloss"}, "gloss"}, {{"scene.iv", "--select", "Cone[2]"}, "Cone"},
            {{"--select", "Gold"}, "Gold"}, {{"--plugin", "nothing.so"}, "nothing.so"},
            {{"--plugin", "scene.iv"}, "scene.iv"}, {{"scene.iv", "--plugin"}, "--plugin"},
            {{"--plugin-path", "nowhere"}, "nowhere"}, {{"scene.iv", "--select="}, "--select"},
            {{"--profile", "Nobody's"}, "Nobody's"}, {{"--colour"}, "colour"},
            {{"scene.iv", "scene.iv"}, "2"},
            {{"scene.iv", "--screenshot", "no/such/folder.png"}, "folder.png"}};
        // clang-format on
        for (auto [arguments, mentions] : rows) {
            if (!arguments.contains("--screenshot"))
                arguments = QStringList{"--screenshot", path("unwanted.png")} + arguments;
            const Outcome outcome = run(arguments);
            QVERIFY2(outcome.exitCode == 1, mentions);
            QVERIFY2(outcome.error.contains(mentions), qPrintable(outcome.error));
            QVERIFY2(outcome.error.endsWith(".\n") && outcome.error.count('\n') == 1,
                     qPrintable(outcome.error));
            QVERIFY(!QFile::exists(path("unwanted.png")));
        }
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
