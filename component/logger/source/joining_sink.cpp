#include "joining_sink.h"

#include <cstring>
#include <utility>

#include <fmt/format.h>

#include "escape.h"

namespace tvo::logger {
namespace {

using View = spdlog::string_view_t;

View ViewOf(const char* text)
{
    return text == nullptr ? View() : View(text);
}

bool AreEqual(View a, View b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size()) == 0;
}

bool IsPlainAscii(View text)
{
    return logger::IsPlainAscii({text.data(), text.size()});
}

bool IsPlainAscii(const spdlog::details::log_msg& message)
{
    return IsPlainAscii(message.payload) && IsPlainAscii(message.logger_name) &&
           IsPlainAscii(ViewOf(message.source.filename)) &&
           IsPlainAscii(ViewOf(message.source.funcname));
}

std::string Escape(View text)
{
    return EscapeForLine({text.data(), text.size()});
}

}  // namespace

JoiningSink::JoiningSink(std::shared_ptr<spdlog::sinks::sink> target) : m_target(std::move(target))
{}

bool JoiningSink::LastLine::Equals(const Message& message) const
{
    return level == message.level && sourceLine == message.source.line &&
           AreEqual(payload, message.payload) &&
           AreEqual(function, ViewOf(message.source.funcname)) &&
           AreEqual(file, ViewOf(message.source.filename));
}

void JoiningSink::LastLine::Take(const Message& message)
{
    const auto keep = [](std::string& text, View view)
    {
        text.assign(view.data(), view.size());
    };
    level = message.level;
    sourceLine = message.source.line;
    thread = message.thread_id;
    keep(tag, message.logger_name);
    keep(file, ViewOf(message.source.filename));
    keep(function, ViewOf(message.source.funcname));
    keep(payload, message.payload);
}

JoiningSink::Message JoiningSink::LastLine::ToMessage(spdlog::log_clock::time_point time,
                                                      View text) const
{
    Message message(time, {file.c_str(), sourceLine, function.c_str()}, tag, level, text);
    message.thread_id = thread;
    return message;
}

void JoiningSink::sink_it_(const Message& message)
{
    if (m_last.Equals(message))
    {
        ++m_repeats;
        m_lastRepeat = message.time;
        if (message.time - m_lastWritten >= RepeatInterval)
        {
            WriteRepeats();
        }
        return;
    }
    WriteRepeats();
    m_last.Take(message);
    m_lastWritten = message.time;
    Write(message);
}

void JoiningSink::Write(const Message& message)
{
    if (IsPlainAscii(message))
    {
        m_target->log(message);
        return;
    }
    const std::string tag = Escape(message.logger_name);
    const std::string file = Escape(ViewOf(message.source.filename));
    const std::string function = Escape(ViewOf(message.source.funcname));
    const std::string payload = Escape(message.payload);
    Message escaped = message;
    escaped.logger_name = tag;
    escaped.source = {file.c_str(), message.source.line, function.c_str()};
    escaped.payload = payload;
    m_target->log(escaped);
}

void JoiningSink::WriteRepeats()
{
    if (m_repeats == 0)
    {
        return;
    }
    const std::string text =
        fmt::format("the last line came {} more {}", m_repeats, m_repeats == 1 ? "time" : "times");
    m_repeats = 0;
    m_lastWritten = m_lastRepeat;
    Write(m_last.ToMessage(m_lastRepeat, text));
}

void JoiningSink::flush_()
{
    WriteRepeats();
    m_target->flush();
}

void JoiningSink::set_formatter_(std::unique_ptr<spdlog::formatter> formatter)
{
    m_target->set_formatter(std::move(formatter));
}

}  // namespace tvo::logger
