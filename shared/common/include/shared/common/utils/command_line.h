#pragma once

#include <string>

#include <CLI/CLI.hpp>

#include <shared/common/utils/bad_use.h>

namespace common::utils {

/// Reads the command line into what the options of `app` were declared with.
/// @returns the help to be printed instead of anything else, or nothing
/// @throws BadUse  with CLI11's words
inline std::string ParseCommandLine(CLI::App& app, int argc, const char* const* argv)
{
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::CallForHelp&)
    {
        return app.help();
    }
    catch (const CLI::ParseError& error)
    {
        throw BadUse(error.what());
    }
    return {};
}

}  // namespace common::utils
