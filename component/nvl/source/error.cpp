#include <variant>

#include <component/nvl/error.h>

namespace nvl {

std::pair<int, std::string> ProcessException() noexcept
{
    try
    {
        throw;
    }
    catch (std::pair<int, std::string>& result)
    {
        return {result.first, std::exchange(result.second, std::string())};
    }
    catch (const Error& error)
    {
        return {error.Code(), error.what()};
    }
    catch (const std::bad_variant_access&)
    {
        return {plk::codes::NotMatched, "nvl: std::bad_variant_access"};
    }
    catch (const std::exception& exception)
    {
        return {plk::codes::UnspecifiedError,
                std::string("nvl: std::exception: ") + exception.what()};
    }
    catch (...)
    {
        return {plk::codes::UnknownException, "nvl: non-std exception"};
    }
}

}  // namespace nvl
