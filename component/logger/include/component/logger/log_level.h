#pragma once

namespace tvo::logger {

/// How much a line matters; also the threshold below which nothing is written.
enum class LogLevel
{
    Trace = 0,     ///< progress of start-up stages
    Debug = 1,     ///< Qt's debug messages, the tracer's call lines
    Info = 2,      ///< major events of the lifecycle; the usual threshold
    Warning = 3,   ///< values that cannot be converted
    Error = 4,     ///< failures that are survived
    Critical = 5,  ///< the failure that ends start-up
    Off = 6,       ///< as a threshold: nothing is written; as a line's level: it is not written
};

}  // namespace tvo::logger
