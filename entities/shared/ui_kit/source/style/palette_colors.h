#pragma once

// What the palettes give to each role, one row a role: COLOR(role, light, dark), or for a gradient
// GRADIENT(role, start, stop), which all palettes share. The texts are "#RRGGBB" or "#AARRGGBB".
// A role that has no colour in a palette says NoColor there. The PersistentAccent roles have none
// in any palette and no row.

// clang-format off
#define UI_KIT_PALETTE_COLORS(COLOR, GRADIENT)                        \
    COLOR(BackgroundPrimary,      "#FFFFFF",    "#050505")            \
    COLOR(BackgroundSubPrimary,   "#F7F8FA",    "#141414")            \
    COLOR(BackgroundSecondary,    "#EBEFF5",    "#242424")            \
    COLOR(BackgroundBase,         "#D6212529",  "#D6212529")          \
                                                                      \
    COLOR(ContentConstant,        "#FFFFFF",    "#FFFFFF")            \
    COLOR(ContentPrimary,         "#212529",    "#FFFFFF")            \
    COLOR(ContentSubPrimary,      "#444647",    "#B2FFFFFF")          \
    COLOR(ContentSecondary,       "#76787A",    "#8FFFFFFF")          \
    COLOR(ContentDisabled,        "#BCBFC2",    "#57FFFFFF")          \
    COLOR(ContentBorder,          "#D2D4D6",    "#29FFFFFF")          \
    COLOR(ContentBackground,      "#E9EAEB",    "#1FFFFFFF")          \
                                                                      \
    COLOR(SystemErrorPrimary,     "#F22A41",    "#F22A41")            \
    COLOR(SystemSuccessPrimary,   NoColor,      NoColor)              \
    COLOR(SystemWarningPrimary,   NoColor,      NoColor)              \
    COLOR(SystemErrorSecondary,   NoColor,      NoColor)              \
    COLOR(SystemSuccessSecondary, NoColor,      NoColor)              \
    COLOR(SystemWarningSecondary, NoColor,      NoColor)              \
                                                                      \
    COLOR(BluePrimary,            NoColor,      NoColor)              \
    COLOR(BlueSubPrimary,         NoColor,      NoColor)              \
    COLOR(BlueSecondary,          NoColor,      NoColor)              \
    COLOR(BlueDisabled,           NoColor,      NoColor)              \
    COLOR(BlueBorder,             NoColor,      NoColor)              \
    COLOR(BlueBackground,         NoColor,      NoColor)              \
                                                                      \
    GRADIENT(GreenPrimary,        "#6AD62B",    "#1CA88C")            \
    GRADIENT(GreenSubPrimary,     "#296AD62B",  "#291CA88C")          \
    COLOR(GreenSecondary,         NoColor,      NoColor)              \
    GRADIENT(GreenDisabled,       "#9981DC4C",  "#9941B79D")          \
    COLOR(GreenBorder,            NoColor,      NoColor)              \
    COLOR(GreenBackground,        NoColor,      NoColor)              \
                                                                      \
    COLOR(PurplePrimary,          NoColor,      "#8C8CFF")            \
    COLOR(PurpleSubPrimary,       NoColor,      "#9C9CFF")            \
    COLOR(PurpleSecondary,        NoColor,      "#ABABFF")            \
    COLOR(PurpleDisabled,         NoColor,      "#478C8CFF")          \
    COLOR(PurpleBorder,           NoColor,      "#338C8CFF")          \
    COLOR(PurpleBackground,       NoColor,      "#1F8C8CFF")
// clang-format on
