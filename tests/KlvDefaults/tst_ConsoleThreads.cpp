// Threads that write and report while the console comes and goes. Meant for the thread sanitizer.

#include "RecordingShell.h"

#include <KlvConsole.h>

#include <atomic>
#include <chrono>
#include <iostream>
#include <mutex>
#include <thread>
#include <vector>

namespace {

constexpr int writerCount = 4;

/// Where the standard output goes without the console.
class Sink : public std::streambuf
{
public:
    std::string text;

protected:
    std::streamsize xsputn(const char* piece, std::streamsize length) override
    {
        const std::lock_guard lock(m_mutex);
        text.append(piece, static_cast<std::size_t>(length));
        return length;
    }
    int overflow(int) override { return 0; }

private:
    std::mutex m_mutex;
};

int rounds(int count)
{
    return qEnvironmentVariableIntValue("KELVOR_THREADS_LONG") ? 10 * count : count;
}

std::vector<std::jthread> startWriters(const std::function<void(int writer)>& write)
{
    std::vector<std::jthread> threads;
    for (int i = 0; i < writerCount; ++i)
        threads.emplace_back(write, i);
    return threads;
}

} // namespace

class tst_ConsoleThreads : public QObject
{
    Q_OBJECT

    Sink m_sink;
    std::streambuf* m_before = nullptr;

private Q_SLOTS:
    void initTestCase() { m_before = std::cout.rdbuf(&m_sink); }
    void cleanupTestCase() { std::cout.rdbuf(m_before); }
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void nothingIsLost()
    {
        const int lineCount = rounds(2'000);
        RecordingShell shell;
        KlvConsole console;
        console.load();
        console.activate();
        console.setMaximumLines(writerCount * lineCount);
        auto* const view = shell.window().findChild<QTextEdit*>(QStringLiteral("m_consoleOutput"));
        std::atomic<int> running = writerCount;
        auto writers = startWriters([&](int writer) {
            for (int i = 0; i < lineCount; ++i)
                std::cout << std::to_string(writer) + ' ' + std::to_string(i) + '\n';
            --running;
        });
        while (running) {
            console.deactivate();
            std::this_thread::yield();
            console.activate();
            QCoreApplication::processEvents();
        }
        writers.clear();
        QCoreApplication::processEvents();
        int found = 0;
        for (const QString& text : {view->toPlainText(), QString::fromStdString(m_sink.text)}) {
            int last[writerCount] = {-1, -1, -1, -1};
            for (const QString& line : text.split('\n', Qt::SkipEmptyParts)) {
                int& previous = last[line.section(' ', 0, 0).toInt()];
                QVERIFY2(line.section(' ', 1).toInt() > previous, qPrintable(line));
                previous = line.section(' ', 1).toInt();
                ++found;
            }
        }
        QCOMPARE(found, writerCount * lineCount);
        console.deactivate();
    }

    void consolesComeAndGo()
    {
        RecordingShell shell;
        const SoError error;
        std::atomic<bool> stop = false;
        std::atomic<KlvConsole*> late = nullptr; // of which the reporting thread learns too late
        auto writers = startWriters([&](int writer) {
            for (int i = 0; !stop; ++i) {
                std::cout << "number " << i << 'x' << std::endl;
                if (writer > 0)
                    continue;
                KlvConsole::errorHandlerCB(&error, late);
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        });
        for (int i = 0; i < rounds(30); ++i) {
            KlvConsole console;
            console.load();
            late = &console;
            console.activate();
            std::cout << "mine" << std::endl;
            QCoreApplication::processEvents();
            console.deactivate();
            console.unload();
        }
        stop = true;
        writers.clear();
        QVERIFY(std::cout.rdbuf() == &m_sink);
    }
};

KLV_TEST_MAIN(tst_ConsoleThreads)
#include "tst_ConsoleThreads.moc"
