#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

namespace tvoctl {

/// Deeper than any path of the settings tree can be.
inline constexpr int MaxJsonDepth = 300;

/// Reads one JSON value (RFC 8259). A member that stands twice in an object is an error.
/// @throws Failure  BadUse
nlohmann::json ParseJson(std::string_view text);

/// On one line, with control and other invisible characters escaped. Bytes that are no UTF-8 become
/// the replacement character.
std::string JsonLine(const nlohmann::json& json);

/// On many lines, for people to read and edit.
std::string JsonPage(const nlohmann::json& json);

}  // namespace tvoctl
