#include "KlvConsole.h"

#include "ConsoleQueue.h"
#include "ConsoleText.h"
#include "ErrorHandlers.h"
#include "ui_m_consoleFrame.h"

#include <KlvExtender/KlvShell.h>
#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoPreferences.h>

#include <Inventor/errors/SoDebugError.h>

#include <QCoreApplication>
#include <QDockWidget>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>

#include <cstdio>
#include <iostream>
#include <utility>
#include <vector>

namespace {

/// A redirector that is not installed. Redirectors are used again and never deleted, because a thread that
/// writes may still be on its way into one.
StdStreamRedirector<char>* idleRedirector(std::ostream& stream)
{
    static auto* const redirectors = new std::vector<StdStreamRedirector<char>*>;
    for (StdStreamRedirector<char>* redirector : *redirectors) {
        if (redirector->stream() == &stream && !redirector->isInstalled())
            return redirector;
    }
    return redirectors->emplace_back(new StdStreamRedirector<char>(stream));
}

/// In dark colors a button that is on hardly differs from one that is off.
void dimWhenOff(QPushButton* button)
{
    const QIcon icon = button->icon();
    QIcon both;
    for (const QSize& size : icon.availableSizes()) {
        both.addPixmap(icon.pixmap(size), QIcon::Normal, QIcon::On);
        both.addPixmap(icon.pixmap(size, QIcon::Disabled), QIcon::Normal, QIcon::Off);
    }
    button->setIcon(both);
}

int kindOf(const SoError& error)
{
    if (!error.isOfType(SoDebugError::getClassTypeId()))
        return ConsoleMessage::Error;
    const auto severity = static_cast<const SoDebugError&>(error).getSeverity();
    if (severity == SoDebugError::WARNING)
        return ConsoleMessage::Warning;
    return severity == SoDebugError::INFO ? ConsoleMessage::Information : ConsoleMessage::Error;
}

/// The length of a UTF-8 text without a character at its end that is still to be continued.
std::size_t wholeCharacters(std::string_view text)
{
    constexpr std::size_t longest = 4;
    for (std::size_t back = 1; back < longest && back <= text.size(); ++back) {
        const auto byte = static_cast<unsigned char>(text[text.size() - back]);
        const bool continues = (byte & 0xC0) == 0x80;
        const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
        if (!continues)
            return length > back ? text.size() - back : text.size();
    }
    return text.size();
}

} // namespace

KlvConsole::ConsoleEvent::ConsoleEvent(QString message, int kind)
    : ConsoleEvent(ConsoleMessage{std::move(message), kind, ConsoleMessage::Paragraph})
{
}

KlvConsole::ConsoleEvent::ConsoleEvent(ConsoleMessage message)
    : QEvent(eventType)
    , m_message(std::move(message))
{
}

KlvConsole::KlvConsole()
{
    m_author = "QRV";
    m_description = "A console which prints the standard output and error.";
    m_version = "1.0.0";
    m_name = "Console";
}

KlvConsole::~KlvConsole()
{
    unload();
}

void KlvConsole::load()
{
    if (m_dock)
        return;
    m_dock = new QDockWidget;
    // The host keeps the window's layout by object name.
    m_dock->setObjectName(QStringLiteral("KlvConsole"));
    m_frame = new QFrame(m_dock);
    m_form = std::make_unique<Ui::m_consoleFrame>();
    m_form->setupUi(m_frame);
    for (QPushButton* filter : {m_form->m_errorsButton, m_form->m_warningsButton, m_form->m_infosButton})
        dimWhenOff(filter);
    m_text = new ConsoleText(m_form->m_consoleOutput);
    m_showErrors = m_showInfos = m_showWarnings = true;

    connect(m_form->m_clearButton, SIGNAL(clicked()), this, SLOT(clear()));
    connect(m_form->m_errorsButton, SIGNAL(toggled(bool)), this, SLOT(outputErrors()));
    connect(m_form->m_infosButton, SIGNAL(toggled(bool)), this, SLOT(outputInfos()));
    connect(m_form->m_saveButton, SIGNAL(clicked()), this, SLOT(save()));
    connect(m_form->m_warningsButton, SIGNAL(toggled(bool)), this, SLOT(outputWarnings()));

    bool isNumber = false;
    const int lines = qEnvironmentVariableIntValue("KELVOR_CONSOLE_LINES", &isNumber);
    setMaximumLines(isNumber ? lines : defaultMaximumLines);
    m_previousHandlers = std::make_unique<ErrorHandlers>(errorHandlerCB, this);
}

void KlvConsole::unload()
{
    stopCapture();
    ConsoleQueue::instance().close(this);
    delete m_frame;
    delete m_dock;
    m_form.reset();
    m_previousHandlers.reset();
}

void KlvConsole::activate()
{
    if (!m_dock)
        return;
    KlvShell* const shell = KlvShell::getInstance();
    if (shell)
        shell->extensionActivated(this, 1);
    KlvExtension::activate();
    m_dock->setWidget(m_frame);
    m_dock->setWindowTitle(tr("Console"));
    if (SoPreferences::getBool("KELVOR_STDOUT_CAPTURE", TRUE))
        startCapture();
    if (shell)
        shell->addDockWidget(m_dock, Qt::BottomDockWidgetArea);
    show();
}

void KlvConsole::deactivate()
{
    KlvExtension::deactivate();
    if (m_dock)
        m_dock->setWidget(nullptr);
    stopCapture();
    KlvShell* const shell = KlvShell::getInstance();
    if (shell)
        shell->removeDockWidget(m_dock);
    hide();
    if (shell)
        shell->extensionDeactivated(this);
}

void KlvConsole::show()
{
    KlvExtension::show();
    if (!m_dock || !m_frame)
        return;
    m_dock->show();
    m_frame->show();
}

void KlvConsole::hide()
{
    KlvExtension::hide();
    if (!m_dock || !m_frame)
        return;
    m_dock->hide();
    m_frame->hide();
}

void KlvConsole::startCapture()
{
    if (m_errorRedirector)
        return;
    // Known before they are installed: other threads ask them for unfinished lines.
    m_errorRedirector = idleRedirector(std::cerr);
    m_outputRedirector = idleRedirector(std::cout);
    m_errorRedirector->install(stderrcb, this);
    m_outputRedirector->install(stdoutcb, this);
}

void KlvConsole::stopCapture()
{
    if (!m_errorRedirector)
        return;
    m_errorRedirector->release();
    m_outputRedirector->release();
    streamed("", 0, ConsoleMessage::Error, m_errorRedirector);
    streamed("", 0, ConsoleMessage::Information, m_outputRedirector);
    m_errorRedirector = nullptr;
    m_outputRedirector = nullptr;
    for (const int kind : {ConsoleMessage::Error, ConsoleMessage::Information}) {
        const std::string unfinished = std::exchange(m_unfinished[kind], {});
        if (!unfinished.empty())
            append({QString::fromStdString(unfinished), kind, ConsoleMessage::StreamText});
        if (m_text)
            m_text->endLine(kind);
    }
}

bool KlvConsole::event(QEvent* event)
{
    for (const ConsoleMessage& message : ConsoleQueue::instance().take(this, event))
        append(message);
    return KlvExtension::event(event);
}

KlvConsole::Style KlvConsole::style(int kind) const
{
    if (kind == ConsoleMessage::Information)
        return {m_showInfos, m_infoColor};
    if (kind == ConsoleMessage::Warning)
        return {m_showWarnings, m_warningColor};
    return {m_showErrors, m_errorColor};
}

void KlvConsole::append(const ConsoleMessage& message)
{
    const Style style = this->style(message.kind);
    if (!m_text)
        return;
    if (!style.shown) {
        if (message.text.contains(u'\n'))
            m_text->endLine(message.kind);
        return;
    }
    if (message.form == ConsoleMessage::StreamText)
        m_text->appendStreamText(message.text, style.color, message.kind);
    else
        m_text->appendParagraph(message.text, style.color);
}

void KlvConsole::printError(const QString& text)
{
    append({text, ConsoleMessage::Error, ConsoleMessage::Paragraph});
}

void KlvConsole::printWarning(const QString& text)
{
    append({text, ConsoleMessage::Warning, ConsoleMessage::Paragraph});
}

void KlvConsole::printInfo(const QString& text)
{
    append({text, ConsoleMessage::Information, ConsoleMessage::Paragraph});
}

int KlvConsole::maximumLines() const
{
    return m_text ? m_text->maximumLines() : defaultMaximumLines;
}

void KlvConsole::setMaximumLines(int lines)
{
    if (!m_text)
        return;
    m_text->setMaximumLines(lines);
    ConsoleQueue::instance().open(this, m_text->maximumLines());
}

void KlvConsole::errorHandlerCB(const SoError* error, void* data)
{
    ConsoleMessage message{toUtf16(error->getDebugString()), kindOf(*error), ConsoleMessage::Paragraph};
    if (!ConsoleQueue::instance().post(static_cast<KlvConsole*>(data), std::move(message)))
        std::fprintf(stderr, "%s\n", error->getDebugString().getString());
}

void KlvConsole::stdoutcb(const char* text, long length, void* data)
{
    auto* const console = static_cast<KlvConsole*>(data);
    console->streamed(text, length, ConsoleMessage::Information, console->m_outputRedirector);
}

void KlvConsole::stderrcb(const char* text, long length, void* data)
{
    auto* const console = static_cast<KlvConsole*>(data);
    console->streamed(text, length, ConsoleMessage::Error, console->m_errorRedirector);
}

void KlvConsole::streamed(const char* text, long length, int kind, StdStreamRedirector<char>* redirector)
{
    const auto passed = StdStreamRedirector<char>::passedText(text, length);
    // Characters written one at a time come before the string that follows them.
    std::string bytes = redirector ? redirector->takeLine() : std::string();
    bytes += passed.text;
    if (passed.endsLine)
        bytes += '\n';
    ConsoleMessage message{decoded(bytes, kind), kind, ConsoleMessage::StreamText};
    if (message.text.isEmpty())
        return;
    ConsoleQueue& queue = ConsoleQueue::instance();
    if (std::this_thread::get_id() != m_thread) {
        queue.post(this, std::move(message));
        return;
    }
    if (queue.isWaiting(this))
        QCoreApplication::sendPostedEvents(this, ConsoleEvent::eventType);
    append(message);
}

QString KlvConsole::decoded(std::string_view bytes, int kind)
{
    const std::lock_guard lock(m_decoding);
    std::string& unfinished = m_unfinished[kind];
    unfinished += bytes;
    const std::size_t length = wholeCharacters(unfinished);
    const QString text = QString::fromUtf8(unfinished.data(), static_cast<qsizetype>(length));
    unfinished.erase(0, length);
    return text;
}

void KlvConsole::clear()
{
    if (m_text)
        m_text->clear();
}

void KlvConsole::outputErrors()
{
    m_showErrors = !m_showErrors;
}

void KlvConsole::outputWarnings()
{
    m_showWarnings = !m_showWarnings;
}

void KlvConsole::outputInfos()
{
    m_showInfos = !m_showInfos;
}

void KlvConsole::save()
{
    const QString path = QFileDialog::getSaveFileName(m_frame, tr("Save the content of the console"),
                                                      QStringLiteral("."), tr("Console outputs (*.txt)"));
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadWrite | QIODevice::Text))
        return;
    const QByteArray text = m_form->m_consoleOutput->toPlainText().toLatin1();
    // What an older, longer file held must not stand behind the text.
    const bool written = file.write(text) == text.size() && file.flush() &&
                         (file.size() <= file.pos() || file.resize(file.pos()));
    const QString reason = file.errorString();
    file.close();
    if (!written)
        QMessageBox::warning(m_frame, tr("Console"),
                             tr("The console could not be saved in \"%1\": %2.").arg(path, reason));
}
