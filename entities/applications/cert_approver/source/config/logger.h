#pragma once

#include <component/logger/log_level.h>

namespace cert_approver::config::logger::impl {

inline constexpr ::tvo::logger::LogLevel logLevel = ::tvo::logger::LogLevel::Info;

}  // namespace cert_approver::config::logger::impl
