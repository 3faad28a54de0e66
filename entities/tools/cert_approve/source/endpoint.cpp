#include "endpoint.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include <arpa/inet.h>
#include <fmt/format.h>
#include <netinet/in.h>

#include <tools/cert_approve/failure.h>

namespace cert_approve {
namespace {

[[noreturn]] void Fail(std::string_view text, const char* reason)
{
    throw Failure(ExitStatus::BadInput, fmt::format("'{}' is no HOST:PORT: {}", text, reason));
}

bool IsPort(std::string_view text)
{
    std::uint16_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number != 0;
}

bool HasHostCharacters(std::string_view host)
{
    return !host.empty() && std::all_of(host.begin(),
                                        host.end(),
                                        [](char c) {
                                            return static_cast<unsigned char>(c) > ' ' &&
                                                   c != '\x7F' && c != '[' && c != ']';
                                        });
}

}  // namespace

Endpoint ParseEndpoint(std::string_view text)
{
    const std::size_t colon = text.rfind(':');
    if (colon == std::string_view::npos)
    {
        Fail(text, "the port is missing");
    }
    std::string_view host = text.substr(0, colon);
    const std::string_view port = text.substr(colon + 1);
    if (!IsPort(port))
    {
        Fail(text, "a port is a number from 1 to 65535");
    }
    const bool isBracketed = host.size() > 2 && host.front() == '[' && host.back() == ']';
    if (isBracketed)
    {
        host = host.substr(1, host.size() - 2);
    }
    if (!HasHostCharacters(host))
    {
        Fail(text, "the host is missing or has wrong characters");
    }
    if (isBracketed != (host.find(':') != std::string_view::npos))
    {
        Fail(text, "an IPv6 address, and nothing else, stands in brackets");
    }
    return {std::string(host), std::string(port)};
}

bool IsAddress(const std::string& host)
{
    in_addr address{};
    return host.find(':') != std::string::npos || ::inet_pton(AF_INET, host.c_str(), &address) == 1;
}

}  // namespace cert_approve
