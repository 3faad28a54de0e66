#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include <component/logger/logger.h>

namespace trace {

/// Traces one call: its owner writes the opening line, the destructor the closing one. Belongs to
/// the thread that made it. With the level `Off` it writes nothing.
class Tracer final
{
public:
    /// Produces the last piece of the closing line; the view may point into the string given.
    using Postfix = std::function<std::string_view(std::string&)>;

    /// @param prefix, function  must outlive the tracer
    Tracer(std::string_view prefix,
           std::string_view function,
           tvo::logger::LogLevel level,
           Postfix postfix = NoPostfix);
    ~Tracer();

    Tracer(const Tracer&) = delete;
    Tracer& operator=(const Tracer&) = delete;

    static std::string_view NoPostfix(std::string& buffer);

    [[nodiscard]] tvo::logger::LogLevel Level() const
    {
        return m_level;
    }
    void SetLevel(tvo::logger::LogLevel level)
    {
        m_level = level;
    }

    /// The texts of the call's arguments and of its outcome, the targets of `PutImpl`.
    [[nodiscard]] std::string& Arguments()
    {
        return m_arguments;
    }
    [[nodiscard]] std::string& Results()
    {
        return m_results;
    }

    /// Appends formatted text to `Arguments()` or `Results()`; nothing for an empty format.
    /// @throws fmt::format_error for a format that does not fit its arguments
    template <class... Args>
    void PutImpl(std::string& target, std::string_view format, Args&&... args)
    {
        if (!format.empty())
        {
            target += fmt::vformat(format, fmt::make_format_args(args...));
        }
    }

    /// `PutImpl` with a format that the compiler checks.
    template <class... Args>
    void PutArguments(fmt::format_string<Args...> format, Args&&... args)
    {
        PutImpl(m_arguments, View(format), std::forward<Args>(args)...);
    }

    template <class... Args>
    void PutResults(fmt::format_string<Args...> format, Args&&... args)
    {
        PutImpl(m_results, View(format), std::forward<Args>(args)...);
    }

    /// Writes one line: prefix, function, arguments and what is there of results and text. A text
    /// without arguments is taken as it stands, otherwise it is their format.
    template <class... Args>
    void LogImpl(tvo::logger::LogLevel level, std::string_view text, Args&&... args) const
    {
        if constexpr (sizeof...(Args) == 0)
        {
            WriteLine(level, text);
        }
        else if (tvo::logger::IsEnabled(level))
        {
            WriteLine(level, fmt::vformat(text, fmt::make_format_args(args...)));
        }
    }

private:
    static std::string_view View(fmt::string_view format)
    {
        return {format.data(), format.size()};
    }

    void WriteLine(tvo::logger::LogLevel level, std::string_view text) const;
    [[nodiscard]] std::string MakeLine(std::string_view text) const;
    void WriteClosingLine() const;

    std::string_view m_prefix;
    std::string_view m_function;
    tvo::logger::LogLevel m_level;
    Postfix m_postfix;
    std::string m_arguments;
    std::string m_results;
};

}  // namespace trace
