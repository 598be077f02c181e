// The capture of the standard streams, and the console that shows it.

#include "RecordingShell.h"

#include <ConsoleText.h>
#include <KlvConsole.h>

#include <KlvExtender/SceneGraph/SoErrorStack.h>
#include <KlvExtender/SceneGraph/SoGLError.h>

#include <iostream>
#include <sstream>
#include <thread>
#include <vector>

namespace {

using Redirector = StdStreamRedirector<char>;
using Calls = std::vector<std::pair<std::string, long>>;

void record(const char* text, long length, void* data)
{
    static_cast<Calls*>(data)->emplace_back(Redirector::passedText(text, length).text, length);
}

void postReadError(const char* text)
{
    SoInput input;
    SoReadError::post(&input, "%s", text);
}

} // namespace

class tst_Console : public QObject
{
    Q_OBJECT

    RecordingShell m_shell;
    std::unique_ptr<KlvConsole> m_console;

    QTextEdit* output() { return m_shell.window().findChild<QTextEdit*>(QStringLiteral("m_consoleOutput")); }
    QString text() { return output()->toPlainText(); }
    QPushButton* button(const char* name)
    {
        return m_shell.window().findChild<QPushButton*>(QLatin1String(name));
    }
    /// Saves to a file, answers a message on failure and gives its text.
    QString save(const QString& path)
    {
        QString told;
        QTimer answer;
        connect(&answer, &QTimer::timeout, this, [&] {
            QWidget* const shown = QApplication::activeModalWidget();
            if (auto* message = qobject_cast<QMessageBox*>(shown)) {
                told = message->text();
                message->accept();
            } else if (auto* dialog = qobject_cast<QFileDialog*>(shown)) {
                dialog->setOption(QFileDialog::DontConfirmOverwrite);
                dialog->selectFile(path);
                QMetaObject::invokeMethod(dialog, "accept");
            }
        });
        answer.start(0);
        button("m_saveButton")->click();
        return told;
    }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_shell.window().show();
        m_console = std::make_unique<KlvConsole>();
        m_console->load();
        m_console->activate();
    }
    void cleanup()
    {
        if (m_console->isActive())
            m_console->deactivate();
        m_console.reset();
        m_shell.takeCalls();
    }

    void redirector()
    {
        std::stringbuf own;
        std::ostream stream(&own);
        Calls calls;
        {
            const Redirector redirector(stream, record, &calls);
            stream << "hello" << 'a' << 'b' << std::string("x\0y", 3) << 'c' << std::endl << std::endl;
            const char unterminated[] = {'z'};
            stream.write(unterminated, 1);
            stream.put('\0').put('d').put('\n');
            QCOMPARE(stream.rdbuf()->sputc('e'), int('e'));
        }
        const Calls expected{{"hello", 5}, {{"x\0y", 3}, 3}, {"abc", 1}, {"", 1}, {"z", 1}, {{"\0d", 2}, 1}};
        QVERIFY(calls == expected);
        QVERIFY(stream.rdbuf() == &own);
        stream << "later";
        QCOMPARE(own.str(), std::string("later"));
    }

    void releasedRedirectorPassesOn()
    {
        std::stringbuf own;
        std::ostream stream(&own);
        Calls calls;
        Redirector redirector(stream, record, &calls);
        {
            const Redirector above(stream, record, &calls);
            redirector.release();
        } // puts the released one back
        stream << "late" << std::endl;
        QCOMPARE(own.str(), std::string("late\n"));
        redirector.install(record, &calls);
        stream << "new";
        QVERIFY(calls == Calls({{"new", 3}}));
    }

    void streams()
    {
        const auto shown = [this](const QByteArrayList& pieces) {
            m_console->clear();
            for (const QByteArray& piece : pieces)
                std::cout << piece.constData();
            return text();
        };
        QCOMPARE(shown({"a = ", "3", "\n", "", "next"}), QStringLiteral("a = 3\nnext"));
        QCOMPARE(shown({"1\n2\n\n3\n", "4"}), QStringLiteral("1\n2\n\n3\n4"));
        QCOMPARE(shown({"\xe2", "\x82", "\xac\n"}), QStringLiteral("€"));
        QCOMPARE(shown({"caf\xe9", "\n", "f\xe4", "r"}), QStringLiteral("caf\uFFFD\nf\uFFFDr"));
        QCOMPARE(shown({"\n\nwin\r\n", "x"}), QStringLiteral("\n\nwin\nx"));
        QCOMPARE(shown({QByteArray(20000, 'x')}).indexOf('\n'), ConsoleText::maximumLineLength);

        // A line ends unseen, too; only long lines are broken, and none within a character.
        m_console->clear();
        std::cout << "seen";
        m_console->outputInfos();
        std::cout << "unseen\n";
        m_console->outputInfos();
        std::cout << "seen again\n";
        m_console->printInfo(QString("short line\n").repeated(2000).chopped(1));
        m_console->printInfo(QString(ConsoleText::maximumLineLength - 1, 'x') +
                             QString::fromUtf8("\U0001F600"));
        const QStringList lines = text().split('\n');
        QCOMPARE(lines.size(), 2004);
        QCOMPARE(lines.first(2), QStringList({"seen", "seen again"}));
        QCOMPARE(lines.count("short line"), 2000);
        QVERIFY(lines[2003].isValidUtf16());
    }

    void mixedStreams()
    {
        std::cout << "a" << 'b' << std::string("c\0d", 3);
        std::cerr << "error\n";
        SoDebugError::postWarning("here", "wrong");
        std::cout << "e" << std::endl;
        const QStringList lines = text().split('\n');
        QCOMPARE(lines.size(), 4);
        QVERIFY(lines[2].contains(QStringLiteral("wrong")));
        QCOMPARE(QStringList({lines[0], lines[1], lines[3]}),
                 QStringList({QString::fromLatin1("abc\0d", 5), "error", "e"}));
        std::cout << "left"
                  << "over" << 's';
        QTextEdit* const view = output();
        m_console->deactivate();
        QVERIFY(view->toPlainText().endsWith(QStringLiteral("\nleftovers")));
    }

    void kinds()
    {
        const auto last = [this](void (*post)()) {
            post();
            QCoreApplication::processEvents();
            const QTextBlock block = output()->document()->lastBlock();
            return block.length() > 1 ? block.begin().fragment().charFormat().foreground().color() : QColor();
        };
        const auto warning = [] { SoDebugError::postWarning("here", "w"); };
        const auto info = [] { SoDebugError::postInfo("here", "i"); };
        const QColor errors(Qt::darkRed);
        QCOMPARE(last(warning), QColor(Qt::darkYellow));
        QCOMPARE(last(info), QColor(Qt::darkGreen));
        QCOMPARE(last([] { SoDebugError::post("here", "e"); }), errors);
        QCOMPARE(last([] { postReadError("r"); }), errors);
        QCOMPARE(last([] { std::cout << "out\n"; }), QColor(Qt::darkGreen));
        QCOMPARE(last([] { SoGLError::post("g"); }), errors);
        QCOMPARE(last([] { SoErrorStack::post("s"); }), errors);

        for (const char* name : {"m_clearButton", "m_infosButton", "m_warningsButton"})
            button(name)->click();
        QVERIFY(!last(warning).isValid() && !last(info).isValid());
        std::cout << "hidden\n";
        std::cerr << "shown\n";
        m_console->outputInfos(); // inverts: what the button shows is not asked
        m_console->outputErrors();
        m_console->printError(QStringLiteral("e"));
        m_console->printInfo(QStringLiteral("i"));
        QCOMPARE(text(), QStringLiteral("shown\ni"));

        QPalette dark;
        dark.setColor(QPalette::Base, QColor(30, 30, 30));
        output()->setPalette(dark);
        QVERIFY(last([] { std::cout << "light\n"; }).lightness() > 150);
    }

    void reportsWhileInactive()
    {
        m_console->deactivate();
        m_console.reset();
        const PostedErrors<SoReadError> others;
        m_console = std::make_unique<KlvConsole>();
        qputenv("KELVOR_STDOUT_CAPTURE", "off");
        m_console->load();
        std::streambuf* const before = std::cout.rdbuf();
        m_console->activate();
        qunsetenv("KELVOR_STDOUT_CAPTURE");
        QVERIFY(std::cout.rdbuf() == before);
        QTextEdit* const view = output();
        m_console->deactivate();
        postReadError("while inactive");
        QCoreApplication::processEvents();
        QVERIFY(view->toPlainText().contains(QStringLiteral("while inactive")));
        QVERIFY(others.messages.isEmpty());
        m_console->unload();
        postReadError("after");
        QCOMPARE(others.messages.size(), 1);
        QCOMPARE(m_shell.takeCalls().last(), QStringLiteral("extensionDeactivated Console"));
    }

    void newestLinesAreKept()
    {
        const auto print = [] {
            std::cerr << "kept\n";
            for (int i = 0; i < 10'000; ++i)
                std::cout << i << '\n';
        };
        // A writer on another thread does not wait for this one.
        const auto shown = [&](bool here) {
            here ? print() : std::jthread(print).join();
            QCoreApplication::processEvents();
            return text().split('\n');
        };
        m_console->setMaximumLines(100);
        m_console->outputInfos();
        QCOMPARE(shown(false), QStringList{"kept"});
        m_console->outputInfos();
        for (const QStringList& lines : {shown(false), shown(true)}) {
            QVERIFY(lines.size() >= 100 && lines.size() <= 125);
            for (int i = 0; i < lines.size(); ++i)
                QCOMPARE(lines[i].toInt(), 10'000 - lines.size() + i);
        }
    }

    void viewFollowsTheEnd()
    {
        const auto print = [](int count) {
            for (int i = 0; i < count; ++i)
                std::cout << i << '\n';
            QCoreApplication::processEvents();
        };
        QScrollBar* const bar = output()->verticalScrollBar();
        m_console->setMaximumLines(200);
        print(240);
        QVERIFY(bar->maximum() > 0);
        QCOMPARE(bar->value(), bar->maximum());
        bar->setValue(bar->maximum() / 2);
        const auto firstShown = [this] { return output()->cursorForPosition(QPoint()).block().text(); };
        const QString shown = firstShown();
        print(20); // some of the first lines are cut
        QCOMPARE(firstShown(), shown);
        bar->setValue(bar->maximum());
        print(5);
        QCOMPARE(bar->value(), bar->maximum());
    }

    void saving()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("log.txt"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite) && file.write(QByteArray(1000, 'o')) == 1000 && file.reset());
        std::cout << "gr\xc3\xbcn \xe2\x82\xac\n2\n";
        QCOMPARE(save(path), QString());
        QCOMPARE(file.readAll(), QByteArray("gr\xfcn ?\n2"));
        QVERIFY(save(QStringLiteral("/dev/full")).contains(QStringLiteral("/dev/full")));
        QCOMPARE(text(), QStringLiteral("grün €\n2"));
    }
};

KLV_TEST_MAIN(tst_Console)
#include "tst_Console.moc"
