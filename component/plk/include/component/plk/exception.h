#pragma once

#include <exception>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>

#include <component/plk/string.h>

namespace zin {

/// The root of the exceptions that know where they were thrown. The text grows by `<<` of the
/// classes below; only ASCII may be streamed, since each byte is widened by itself.
class Exception : public std::exception
{
public:
    using String = types::string16_t;

    ~Exception() override = default;
    Exception& operator=(const Exception&) = delete;

    [[nodiscard]] const char* what() const noexcept override;

    /// @returns the text; with a result code, the code behind it
    [[nodiscard]] virtual String Text() const;

    /// Throws a copy of this object as its own class.
    [[noreturn]] virtual void Throw() const = 0;

    [[nodiscard]] virtual std::unique_ptr<Exception> Clone() const = 0;

    /// The whole exception on one line: class, text, file and line, with a final blank. Empty when
    /// there is no memory for it.
    [[nodiscard]] String DisplayText() const;

    [[nodiscard]] const char* File() const noexcept
    {
        return m_file;
    }
    [[nodiscard]] int Line() const noexcept
    {
        return m_line;
    }
    [[nodiscard]] const Exception* Inner() const noexcept
    {
        return m_inner.get();
    }

protected:
    /// @param file  a literal, not copied
    Exception(const char* file, int line) noexcept : m_file(file), m_line(line) {}
    Exception(const Exception& other);

    void SetInner(std::unique_ptr<Exception> inner) noexcept
    {
        m_inner = std::move(inner);
    }

    /// Appends a value as a wide stream with default formatting prints it. Const, because a site
    /// fills a temporary in the expression that throws it.
    template <class T>
    void Append(const T& value) const
    {
        std::basic_ostringstream<wchar_t> stream;
        if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, std::string_view>)
        {
            for (const char byte : value)
            {
                stream << byte;
            }
        }
        else
        {
            stream << value;
        }
        AppendWide(stream.str());
    }

private:
    void AppendWide(const std::wstring& text) const;

    const char* m_file;
    int m_line;
    mutable String m_text;
    std::unique_ptr<Exception> m_inner;
};

/// Gives a class of the family its `Throw` and `Clone`.
template <class Derived, class Base>
class ExceptionBase : public Base
{
public:
    using Base::Base;

    [[noreturn]] void Throw() const override
    {
        throw Derived(Self());
    }

    [[nodiscard]] std::unique_ptr<Exception> Clone() const override
    {
        return std::make_unique<Derived>(Self());
    }

private:
    [[nodiscard]] const Derived& Self() const
    {
        return static_cast<const Derived&>(*this);
    }
};

}  // namespace zin
