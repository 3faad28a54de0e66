#include "joining_sink.h"

#include <utility>

#include <fmt/format.h>

#include "escape.h"

namespace tvo::logger {
namespace {

std::string EscapeOrEmpty(const char* text)
{
    return text == nullptr ? std::string() : EscapeForLine(text);
}

}  // namespace

JoiningSink::JoiningSink(std::shared_ptr<spdlog::sinks::sink> target) : m_target(std::move(target))
{}

JoiningSink::Line::Line(const Message& message)
    : fields(message),
      tag(EscapeForLine({message.logger_name.data(), message.logger_name.size()})),
      file(EscapeOrEmpty(message.source.filename)),
      function(EscapeOrEmpty(message.source.funcname)),
      payload(EscapeForLine({message.payload.data(), message.payload.size()}))
{}

bool JoiningSink::Line::Equals(const Line& other) const
{
    return fields.level == other.fields.level && fields.source.line == other.fields.source.line &&
           payload == other.payload && function == other.function && file == other.file;
}

JoiningSink::Message JoiningSink::Line::ToMessage(spdlog::string_view_t text) const
{
    Message message = fields;
    message.logger_name = tag;
    message.source = {file.c_str(), fields.source.line, function.c_str()};
    message.payload = text;
    return message;
}

void JoiningSink::sink_it_(const Message& message)
{
    auto line = std::make_unique<Line>(message);
    if (m_last && m_last->Equals(*line))
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
    m_last = std::move(line);
    m_lastWritten = message.time;
    m_target->log(m_last->ToMessage(m_last->payload));
}

void JoiningSink::WriteRepeats()
{
    if (m_repeats == 0)
    {
        return;
    }
    const std::string text =
        fmt::format("the last line came {} more {}", m_repeats, m_repeats == 1 ? "time" : "times");
    Message message = m_last->ToMessage(text);
    message.time = m_lastRepeat;
    m_repeats = 0;
    m_lastWritten = m_lastRepeat;
    m_target->log(message);
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
