#include <exception>

#include <component/logger/tracer.h>

namespace trace {
namespace {

using tvo::logger::LogLevel;

void ReportNoThrow(const char* text) noexcept
{
    try
    {
        TVO_LOG_AS(LogLevel::Error, "~Tracer", "{} exception: {}", "~Tracer", text);
    }
    catch (...)
    {
        // Without memory for the report there is nobody left to tell.
    }
}

}  // namespace

Tracer::Tracer(std::string_view prefix, std::string_view function, LogLevel level, Postfix postfix)
    : m_prefix(prefix), m_function(function), m_level(level), m_postfix(std::move(postfix))
{}

Tracer::~Tracer()
{
    try
    {
        WriteClosingLine();
    }
    catch (const std::exception& exception)
    {
        ReportNoThrow(exception.what());
    }
    catch (...)
    {
        ReportNoThrow("non-std exception");
    }
}

std::string_view Tracer::NoPostfix(std::string& /*buffer*/)
{
    return {};
}

void Tracer::WriteClosingLine() const
{
    if (!tvo::logger::IsEnabled(m_level))
    {
        return;
    }
    std::string buffer;
    LogImpl(m_level, m_postfix ? m_postfix(buffer) : std::string_view());
}

std::string Tracer::MakeLine(std::string_view text) const
{
    if (!text.empty())
    {
        return fmt::format("{}{}({}): {}{}", m_prefix, m_function, m_arguments, m_results, text);
    }
    if (!m_results.empty())
    {
        return fmt::format("{}{}({}): {}", m_prefix, m_function, m_arguments, m_results);
    }
    return fmt::format("{}{}({})", m_prefix, m_function, m_arguments);
}

void Tracer::WriteLine(LogLevel level, std::string_view text) const
{
    if (!tvo::logger::IsEnabled(level))
    {
        return;
    }
    std::string line = MakeLine(text);
    tvo::logger::TVOLogger::RootLogger().LogImpl(level, __FILE__, __LINE__, "LogImpl", line);
}

}  // namespace trace
