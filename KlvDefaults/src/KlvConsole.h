#pragma once

#include "ConsoleMessage.h"
#include "StdStreamRedirector.h"

#include <KlvExtender/KlvExtension.h>

#include <QColor>
#include <QEvent>
#include <QFrame>
#include <QPointer>

#include <memory>
#include <mutex>
#include <thread>

class ConsoleText;
class ErrorHandlers;
class QDockWidget;
class SoError;

namespace Ui {
class m_consoleFrame;
}

/// A dock that shows what the process writes to `std::cout` and `std::cerr` and what the scene graph reports,
/// coloured by kind, with a switch for each kind.
///
/// The reports are collected from `load()` to `unload()`, the streams from `activate()` to `deactivate()`,
/// unless the environment variable KELVOR_STDOUT_CAPTURE is false. Meanwhile what is written goes to the
/// console only.
///
/// The console keeps the newest lines, `defaultMaximumLines` unless the environment variable
/// KELVOR_CONSOLE_LINES gives another number, and up to a quarter more.
///
/// Everything happens on the thread that made the console, but for the static callbacks, which run on
/// whatever thread writes or reports: text of the console's own thread is in the console when the writing
/// returns; text of other threads, and every report, comes by way of a ConsoleEvent. What a thread writes
/// stays in its order. Writers may go on during all calls here: each text ends up in the console or where the
/// stream went before.
class KlvConsole : public KlvExtension
{
    Q_OBJECT

public:
    /// Brings a message to the console's thread.
    class ConsoleEvent : public QEvent
    {
    public:
        static constexpr auto eventType = static_cast<Type>(1000);

        /// A report, to be shown as a paragraph. `kind`: 0 error, 1 information, 2 warning.
        ConsoleEvent(QString message, int kind);
        explicit ConsoleEvent(ConsoleMessage message);

        const ConsoleMessage& message() const { return m_message; }

    private:
        ConsoleMessage m_message;
    };

    static constexpr int defaultMaximumLines = 10'000;

    KlvConsole();
    ~KlvConsole() override;

    void activate() override;
    /// The text stays, and so does what other threads have handed over by now.
    void deactivate() override;
    void hide() override;
    void load() override;
    void show() override;
    void unload() override;
    bool event(QEvent* event) override;

    /// Appends a paragraph in the colour of errors, if these are shown.
    void printError(const QString& text);
    /// Appends a paragraph in the colour of warnings, if these are shown.
    void printWarning(const QString& text);
    /// Appends a paragraph in the colour of information, if this is shown.
    void printInfo(const QString& text);

    /// How many lines are kept; at least 1. Only while loaded.
    int maximumLines() const;
    void setMaximumLines(int lines);

    /// Takes a report to the console `data`, from any thread. When that console is unloaded, or gone, the
    /// report is printed on the standard error stream of C.
    static void errorHandlerCB(const SoError* error, void* data);
    /// Take what a redirector passes to the console `data`, which must be there. See
    /// `StdStreamRedirector::passedText()` for the extent of the text.
    static void stdoutcb(const char* text, long length, void* data);
    static void stderrcb(const char* text, long length, void* data);

public Q_SLOTS:
    void clear();
    /// Inverts whether errors are shown from now on.
    void outputErrors();
    /// Inverts whether warnings are shown from now on.
    void outputWarnings();
    /// Inverts whether information is shown from now on.
    void outputInfos();
    /// Asks for a file and writes the text there, in Latin-1. A file that does not open is passed over in
    /// silence; a file that cannot take the whole text is told of.
    void save();

private:
    struct Style
    {
        bool shown;
        QColor color;
    };
    Style style(int kind) const;
    void append(const ConsoleMessage& message);
    void streamed(const char* text, long length, int kind, StdStreamRedirector<char>* redirector);
    QString decoded(std::string_view bytes, int kind);
    void startCapture();
    void stopCapture();

    std::unique_ptr<Ui::m_consoleFrame> m_form;
    bool m_showErrors = true;
    bool m_showInfos = true;
    bool m_showWarnings = true;
    QPointer<QDockWidget> m_dock;
    QPointer<QFrame> m_frame;
    const QColor m_errorColor{Qt::darkRed};
    const QColor m_infoColor{Qt::darkGreen};
    const QColor m_warningColor{Qt::darkYellow};
    std::unique_ptr<ErrorHandlers> m_previousHandlers;
    StdStreamRedirector<char>* m_errorRedirector = nullptr;
    StdStreamRedirector<char>* m_outputRedirector = nullptr;

    QPointer<ConsoleText> m_text;
    const std::thread::id m_thread = std::this_thread::get_id();
    std::mutex m_decoding; ///< guards the bytes of characters that a piece has not finished, by kind
    std::string m_unfinished[2];
};
