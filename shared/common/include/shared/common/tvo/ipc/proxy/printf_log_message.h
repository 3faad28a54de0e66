#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <tuple>

#include <shared/common/tvo/ipc/proxy/logger.h>

namespace tvoipc_detail::api_v1 {

/// `snprintf` out of the compiler's sight: cutting a text is what the caller wants here.
int FormatText(char* buffer, std::size_t size, const char* format, ...);

/// A printf format with its arguments. Arguments given as references are read when the text is
/// formatted, so they have to live as long as the message.
template <typename... Args>
class PrintfLogMessage final : public tvoipc::api_v1::ILogMessage
{
public:
    explicit PrintfLogMessage(const char* format, Args... args) : m_format(format), m_args(args...)
    {}

    const char* Text() override
    {
        if (!m_text)
        {
            const std::size_t size = FormattedSize() + 1;
            m_text.reset(new (std::nothrow) char[size]);
            if (!m_text)
            {
                return "failed to allocate memory for log string";
            }
            Text(m_text.get(), size);
        }
        return m_text.get();
    }

    void Text(char* buffer, std::size_t size) override
    {
        if (buffer == nullptr || size == 0)
        {
            return;
        }
        if (Format(buffer, size) < 0)
        {
            FormatText(buffer, size, "%s", "failed to format a log message");
        }
    }

    std::size_t FormattedSize() override
    {
        const int size = Format(nullptr, 0);
        return size < 0 ? 0 : static_cast<std::size_t>(size);
    }

private:
    int Format(char* buffer, std::size_t size) const
    {
        return std::apply(
            [&](auto&&... args) { return FormatText(buffer, size, m_format, args...); }, m_args);
    }

    const char* m_format;
    std::tuple<Args...> m_args;
    std::unique_ptr<char[]> m_text;
};

}  // namespace tvoipc_detail::api_v1
