#pragma once

#include <string>

namespace tvoipc::api_v1 {

/// Translates between exceptions and result codes.
class IRetcodeExceptionConverter
{
public:
    virtual ~IRetcodeExceptionConverter() = default;

    /// Called inside a handler; stores the code of the exception in flight.
    virtual void CatchException(int& code) = 0;

    virtual void ThrowException(int code) = 0;
};

/// Translates between exceptions and texts.
class IStringExceptionConverter
{
public:
    virtual ~IStringExceptionConverter() = default;

    /// Called inside a handler; stores the text of the exception in flight.
    virtual void CatchException(std::string& text) = 0;

    virtual void ThrowException(const std::string& text) = 0;
};

}  // namespace tvoipc::api_v1

namespace tvoipc_detail::api_v1 {

/// Knows one code for every exception and throws none.
class DefaultRetcodeExceptionConverter final : public tvoipc::api_v1::IRetcodeExceptionConverter
{
public:
    void CatchException(int& code) override;
    void ThrowException(int code) override;
};

/// Knows no text of an exception and throws `std::runtime_error`.
class DefaultStringExceptionConverter final : public tvoipc::api_v1::IStringExceptionConverter
{
public:
    void CatchException(std::string& text) override;
    void ThrowException(const std::string& text) override;
};

}  // namespace tvoipc_detail::api_v1
