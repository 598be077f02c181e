#include "ConsoleQueue.h"

#include "ConsoleText.h"
#include "KlvConsole.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

/// How many lines a message takes at most; unfinished ones count, so that each message counts.
int lineCount(const ConsoleMessage& message)
{
    return static_cast<int>(message.text.count(QLatin1Char('\n'))) + 1;
}

int kindOf(const ConsoleMessage& message)
{
    return std::clamp<int>(message.kind, ConsoleMessage::Error, ConsoleMessage::Warning);
}

} // namespace

ConsoleQueue& ConsoleQueue::instance()
{
    static auto* const queue = new ConsoleQueue;
    return *queue;
}

void ConsoleQueue::open(KlvConsole* console, int maximumLines)
{
    const std::lock_guard lock(m_mutex);
    m_mails[console].maximumLines = maximumLines;
}

void ConsoleQueue::close(KlvConsole* console)
{
    const std::lock_guard lock(m_mutex);
    m_mails.erase(console);
}

bool ConsoleQueue::post(KlvConsole* console, ConsoleMessage message)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_mails.find(console);
    if (found == m_mails.end())
        return false;
    Mail& mail = found->second;
    if (mail.event) {
        append(mail, std::move(message));
    } else {
        // Posted under the lock: nobody can close the console meanwhile.
        auto* const event = new KlvConsole::ConsoleEvent(std::move(message));
        mail.event = event;
        QCoreApplication::postEvent(console, event);
    }
    return true;
}

bool ConsoleQueue::isWaiting(KlvConsole* console)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_mails.find(console);
    return found != m_mails.end() && found->second.event;
}

std::deque<ConsoleMessage> ConsoleQueue::take(KlvConsole* console, const QEvent* event)
{
    const std::lock_guard lock(m_mutex);
    std::deque<ConsoleMessage> messages;
    if (event->type() != KlvConsole::ConsoleEvent::eventType)
        return messages;
    const auto found = m_mails.find(console);
    if (found != m_mails.end() && found->second.event == event) {
        Mail& mail = found->second;
        mail.event = nullptr;
        mail.lines = {};
        mail.cutAt = {};
        messages.swap(mail.behind);
    }
    messages.push_front(static_cast<const KlvConsole::ConsoleEvent*>(event)->message());
    return messages;
}

void ConsoleQueue::append(Mail& mail, ConsoleMessage message)
{
    const int kind = kindOf(message);
    int& lines = mail.lines[kind];
    ConsoleMessage* const last = mail.behind.empty() ? nullptr : &mail.behind.back();
    if (last && last->form == ConsoleMessage::StreamText && message.form == ConsoleMessage::StreamText &&
        last->kind == message.kind &&
        last->text.size() + message.text.size() <= ConsoleText::maximumLineLength) {
        lines += lineCount(message) - 1;
        last->text += message.text;
    } else {
        lines += lineCount(message);
        mail.behind.push_back(std::move(message));
    }
    // In large steps, so that the cost for each message stays flat.
    if (lines / 2 > mail.maximumLines && lines > mail.cutAt[kind]) {
        cut(mail, kind);
        mail.cutAt[kind] = lines + mail.maximumLines;
    }
}

/// Drops the oldest messages of a kind that the newest ones would push out of the console.
void ConsoleQueue::cut(Mail& mail, int kind)
{
    int surplus = mail.lines[kind] - mail.maximumLines;
    std::erase_if(mail.behind, [&](const ConsoleMessage& message) {
        if (kindOf(message) != kind || surplus <= 0)
            return false;
        surplus -= lineCount(message);
        if (surplus < 0)
            return false; // the console would show its end
        mail.lines[kind] -= lineCount(message);
        return true;
    });
}
