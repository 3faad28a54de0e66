#pragma once

#include <string>
#include <vector>

namespace taskbar_preview {

/// What the command line asks for.
struct Options
{
    std::string language;              ///< the clock's; empty for the system's
    std::vector<std::string> layouts;  ///< the codes of the locales that the layout menu offers
    std::string contact;
    bool isUpdateReady = false;
    std::string screenshot;  ///< where to save a picture; empty: stay until the window is closed
    std::string help;        ///< to be printed instead of anything else
};

/// @throws common::utils::BadUse
Options ParseOptions(int argc, const char* const* argv);

}  // namespace taskbar_preview
