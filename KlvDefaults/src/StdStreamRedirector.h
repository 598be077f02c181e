#pragma once

#include <mutex>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

/// A stream buffer that takes the place of a stream's own and passes what is written to a callback.
///
/// Strings are passed as they come, with their length. Characters written one at a time are collected and
/// passed as a line, terminated by NUL and with the length 1, when a newline comes, which itself is not
/// passed.
///
/// A redirector is made, installed and released on one thread, its owner's; any thread may write. Calls of
/// the callback from other threads come one after the other, and none is under way or will come when
/// `release()` returns. On the owner's thread no lock is held during the callback, so that it may write and
/// release.
///
/// **Switching while others write.** A thread that writes to a standard stream loads the pointer to the
/// buffer and then calls the buffer, and nobody can tell how long it stays in between. So
/// - a redirector that was on a stream which other threads use may be released but never deleted: late comers
///   still find it and are sent on to the buffer that was there before, so that no text is lost;
/// - its code must stay too, which is why the module is linked to remain in memory;
/// - the pointer in the stream is not ours to guard: the standard library stores it as one aligned word, so
/// that a
///   writer finds either buffer, and both work. What a writer sees in the redirector is guarded by the
///   redirector's own lock, taken after the pointer was loaded.
template <typename Char, typename Traits = std::char_traits<Char>>
class StdStreamRedirector final : public std::basic_streambuf<Char, Traits>
{
public:
    using Stream = std::basic_ostream<Char, Traits>;
    using StreamBuffer = std::basic_streambuf<Char, Traits>;
    using View = std::basic_string_view<Char, Traits>;
    /// Gets the text, a length (see the class) and the data given at installation.
    using Callback = void (*)(const Char* text, long length, void* data);
    using typename StreamBuffer::int_type;

    /// What a call of the callback is about.
    struct Passed
    {
        View text;
        bool endsLine; ///< whether a newline follows, which is not in the text
    };

    /// Makes a redirector that is not installed. The stream must outlive it.
    explicit StdStreamRedirector(Stream& stream)
        : m_stream(&stream)
    {
    }
    /// Makes a redirector and installs it.
    StdStreamRedirector(Stream& stream, Callback callback, void* data)
        : StdStreamRedirector(stream)
    {
        install(callback, data);
    }
    /// Gives the stream its previous buffer back.
    ~StdStreamRedirector() override { release(); }

    StdStreamRedirector(const StdStreamRedirector&) = delete;
    StdStreamRedirector& operator=(const StdStreamRedirector&) = delete;

    const Stream* stream() const { return m_stream; }
    /// Whether text goes to a callback. On the owner's thread.
    bool isInstalled() const { return m_callback != nullptr; }

    /// Puts the redirector into the place of the stream's buffer.
    void install(Callback callback, void* data)
    {
        {
            const std::lock_guard lock(m_mutex);
            // Whoever had replaced a redirector may have put it back after it was released.
            if (m_stream->rdbuf() != this)
                m_previous = m_stream->rdbuf();
            m_callback = callback;
            m_data = data;
        }
        m_stream->rdbuf(this);
    }

    /// Gives the stream its previous buffer back, where late comers are sent too. Characters of an unfinished
    /// line are kept for `takeLine()`. Does nothing when the redirector is not installed.
    void release()
    {
        if (!isInstalled())
            return;
        m_stream->rdbuf(m_previous);
        const std::lock_guard lock(m_mutex);
        m_callback = nullptr;
    }

    /// Takes the characters that were written one at a time since the last newline.
    std::basic_string<Char, Traits> takeLine()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_line, {});
    }

    /// What a callback was called with, to be asked in the callback: the length alone does not tell a string
    /// of one character, which nothing terminates, from a line, which may hold NUL. For a call that no
    /// redirector made, the length 1 means a line that ends at its NUL, and any other length a string.
    static Passed passedText(const Char* text, long length)
    {
        if (s_passing && s_passing->text.data() == text)
            return *s_passing;
        if (length == 1)
            return {View(text), true};
        return {View(text, static_cast<std::size_t>(length)), false};
    }

protected:
    std::streamsize xsputn(const Char* text, std::streamsize length) override
    {
        std::unique_lock lock(m_mutex);
        if (!m_callback)
            return m_previous->sputn(text, length);
        pass(lock, {View(text, static_cast<std::size_t>(length)), false}, static_cast<long>(length));
        return length;
    }

    int_type overflow(int_type character = Traits::eof()) override
    {
        std::unique_lock lock(m_mutex);
        const Char last = Traits::to_char_type(character);
        if (!m_callback)
            return m_previous->sputc(last);
        if (last != Char('\n')) {
            m_line.push_back(last);
        } else {
            const auto line = std::exchange(m_line, {});
            pass(lock, {line, true}, 1);
        }
        return Traits::not_eof(character);
    }

    int sync() override
    {
        const std::lock_guard lock(m_mutex);
        return m_callback ? 0 : m_previous->pubsync();
    }

private:
    void pass(std::unique_lock<std::recursive_mutex>& lock, const Passed& passed, long length)
    {
        struct Passing
        {
            explicit Passing(const Passed& passed)
                : outer(std::exchange(s_passing, &passed))
            {
            }
            ~Passing() { s_passing = outer; }
            const Passed* outer;
        } const passing(passed);
        const Callback callback = m_callback;
        void* const data = m_data;
        if (std::this_thread::get_id() == m_owner)
            lock.unlock();
        callback(passed.text.data(), length, data);
    }

    static inline thread_local const Passed* s_passing = nullptr;

    Stream* m_stream;
    StreamBuffer* m_previous = nullptr;
    std::basic_string<Char, Traits> m_line;
    Callback m_callback = nullptr;
    void* m_data = nullptr;
    const std::thread::id m_owner = std::this_thread::get_id();
    std::recursive_mutex m_mutex; ///< recursive, because a callback may take the unfinished line
};
