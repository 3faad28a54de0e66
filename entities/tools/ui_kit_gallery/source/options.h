#pragma once

#include <string>

namespace ui_kit_gallery {

struct Options
{
    std::string page;        ///< the page to begin with; empty: the first one
    std::string palette;     ///< "light", "dark" or "none"
    std::string screenshot;  ///< the picture to write instead of staying; empty: none
    std::string docs;        ///< the folder to write the documentation to; empty: none
    double scale = 0;        ///< device pixels in one; 0: what the screen says
    bool isList = false;     ///< only print the names of the pages
    std::string help;        ///< not empty: to be printed, and nothing else to be done
};

/// @throws common::utils::BadUse
[[nodiscard]] Options ParseOptions(int argc, const char* const* argv);

}  // namespace ui_kit_gallery
