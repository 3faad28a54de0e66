#include <stdexcept>

#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_codes.h>
#include <component/plk/text.h>

namespace plk::utils {
namespace {

std::string DisplayText(const zin::Exception& exception)
{
    return zin::text::Cast<std::string>(exception.DisplayText());
}

}  // namespace

std::pair<int, std::string> ProcessException() noexcept
{
    try
    {
        throw;
    }
    catch (const zin::ResultCodeException& exception)
    {
        return {exception.Code(), DisplayText(exception)};
    }
    catch (const zin::Exception& exception)
    {
        return {codes::UnspecifiedError, DisplayText(exception)};
    }
    catch (const std::invalid_argument& exception)
    {
        return {codes::InvalidArgument, exception.what()};
    }
    catch (const std::length_error& exception)
    {
        return {codes::InvalidSize, exception.what()};
    }
    catch (const std::out_of_range& exception)
    {
        return {codes::InvalidIndex, exception.what()};
    }
    catch (const std::exception& exception)
    {
        return {codes::UnspecifiedError, std::string("std::exception: ") + exception.what()};
    }
    catch (...)
    {
        return {codes::UnspecifiedError, "non-std exception"};
    }
}

}  // namespace plk::utils

namespace common::utils {

std::pair<int, std::string> ProcessException() noexcept
{
    return plk::utils::ProcessException();
}

}  // namespace common::utils
