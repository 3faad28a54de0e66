#pragma once

#include <string>

namespace nvl {

/// The rules for the text form of a path.
struct IdSpec
{
    std::string chars;           ///< not allowed in names; the first one separates the levels
    unsigned long maxIndex = 0;  ///< the largest index; 0 for no limit
};

/// What became of a conversion between path and text.
enum class IdState : int
{
    Ok = 0,
    NoLevel = 1,            ///< a level holds neither index nor name
    IndexTooLarge = 2,      ///< above `IdSpec::maxIndex`
    BadNumber = 3,          ///< an index of more than 64 bits
    EmptyName = 4,          ///< in a path
    EmptyLevel = 5,         ///< in a text: a separator at its beginning, or two in a row
    DigitAtStart = 6,       ///< a name that would be read as an index
    ReservedCharacter = 7,  ///< in a name; in a text also a level with digits first, then others
    NoSpecification = 8,    ///< `IdSpec::chars` is empty
};

}  // namespace nvl
