#pragma once

#include "ConsoleMessage.h"

#include <array>
#include <deque>
#include <map>
#include <mutex>

class KlvConsole;
class QEvent;

/// The way of messages from any thread to the consoles, which may be gone by then.
///
/// For the first message a `KlvConsole::ConsoleEvent` is posted; what comes while this event is under way
/// waits behind it, in order. A writer is never made to wait, since the console's thread may be waiting for
/// the writer. So that what waits cannot eat the memory either, it is cut where nobody can see it: of each
/// kind as many lines are kept as the console can show.
///
/// The one object is never destroyed: threads may come at any time.
class ConsoleQueue
{
public:
    static ConsoleQueue& instance();

    /// From now on messages are taken for the console, which keeps so many lines.
    void open(KlvConsole* console, int maximumLines);
    /// Messages are no longer taken; those that wait are dropped. When this returns no thread uses the
    /// console.
    void close(KlvConsole* console);
    /// Hands a message over, from any thread. False when the console is not open; the pointer may then be
    /// wild.
    bool post(KlvConsole* console, ConsoleMessage message);
    /// Whether a message is under way.
    bool isWaiting(KlvConsole* console);
    /// Gives what an event brings to a console: when it is a `KlvConsole::ConsoleEvent` its own message, then
    /// those that wait behind it. Otherwise nothing.
    std::deque<ConsoleMessage> take(KlvConsole* console, const QEvent* event);

private:
    ConsoleQueue() = default;

    /// What is on its way to one console.
    struct Mail
    {
        const QEvent* event = nullptr; ///< posted and not yet arrived
        std::deque<ConsoleMessage> behind;
        std::array<int, 3> lines{}; ///< that wait behind the event, by kind
        std::array<int, 3>
            cutAt{}; ///< so many of them, so that a cut is paid for by what came since the last
        int maximumLines = 0;
    };
    static void append(Mail& mail, ConsoleMessage message);
    static void cut(Mail& mail, int kind);

    std::mutex m_mutex;
    std::map<KlvConsole*, Mail> m_mails;
};
