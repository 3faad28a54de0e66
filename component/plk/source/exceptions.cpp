#include <array>
#include <cstdio>
#include <new>

#include <component/plk/exceptions.h>
#include <component/plk/result_code_text.h>
#include <component/plk/stream.h>
#include <component/plk/text.h>

namespace zin {
namespace {

using types::string16_t;

void Append(string16_t& target, string16_t::view_type text)
{
    target.append_by_traits(text.data(), text.size());
}

void AppendNarrow(string16_t& target, const char* text)
{
    Append(target, text::Cast<string16_t>(text).view());
}

void AppendCode(string16_t& target, int code)
{
    stream::stream_put_cstr(target, stream::format_options_t{}, "0x");
    stream::stream_put_int(
        target, stream::format_options_t{.width = 8, .base = 16, .fill = U'0'}, code);
    Append(target, u" (");
    for (const char byte : plk::zinx::ResultCodeMessage(code))
    {
        const auto wide = static_cast<char16_t>(static_cast<unsigned char>(byte));
        target.append_by_traits(&wide, 1);
    }
    Append(target, u")");
}

}  // namespace

Exception::Exception(const Exception& other)
    : std::exception(other),
      m_file(other.m_file),
      m_line(other.m_line),
      m_text(other.m_text),
      m_inner(other.m_inner ? other.m_inner->Clone() : nullptr)
{}

const char* Exception::what() const noexcept
{
    return std::exception::what();
}

Exception::String Exception::Text() const
{
    return m_text;
}

Exception::String Exception::DisplayText() const
try
{
    std::array<char, 64> line{};
    std::snprintf(line.data(), line.size(), "%d", m_line);

    String result;
    AppendNarrow(result, what());
    zin::Append(result, u" - ");
    zin::Append(result, Text().view());
    zin::Append(result, u". At ");
    AppendNarrow(result, m_file);
    zin::Append(result, u"(");
    AppendNarrow(result, line.data());
    zin::Append(result, u") ");
    return result;
}
catch (const std::bad_alloc&)
{
    return String();
}

void Exception::AppendWide(const std::wstring& text) const
{
    zin::Append(m_text, text::Cast<String>(text).view());
}

const char* CheckFailedException::what() const noexcept
{
    return "CheckFailedException";
}

const char* ResultCodeException::what() const noexcept
{
    return "ResultCodeException";
}

Exception::String ResultCodeException::Text() const
{
    String result = Exception::Text();
    if (!result.empty())
    {
        zin::Append(result, u": ");
    }
    AppendCode(result, m_code);
    return result;
}

const char* CheckResultFailedException::what() const noexcept
{
    return "CheckResultFailedException";
}

const char* InvalidArgumentException::what() const noexcept
{
    return "InvalidArgumentException";
}

}  // namespace zin
