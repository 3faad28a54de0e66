#include <map>

#include <QMetaProperty>
#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <shared/ui_kit/style/palette_factory.h>

namespace vdi::uikit::utils::style {
namespace {

struct Colors
{
    const char* light;
    const char* dark;
};

/// The properties that have a value in some palette, as QML reads them.
// clang-format off
const std::map<std::string, Colors> Valued{
    {"backgroundPrimary",    {"#ffffffff", "#ff050505"}},
    {"backgroundSubPrimary", {"#fff7f8fa", "#ff141414"}},
    {"backgroundSecondary",  {"#ffebeff5", "#ff242424"}},
    {"backgroundBase",       {"#d6212529", "#d6212529"}},
    {"contentConstant",      {"#ffffffff", "#ffffffff"}},
    {"contentPrimary",       {"#ff212529", "#ffffffff"}},
    {"contentSubPrimary",    {"#ff444647", "#b2ffffff"}},
    {"contentSecondary",     {"#ff76787a", "#8fffffff"}},
    {"contentDisabled",      {"#ffbcbfc2", "#57ffffff"}},
    {"contentBorder",        {"#ffd2d4d6", "#29ffffff"}},
    {"contentBackground",    {"#ffe9eaeb", "#1fffffff"}},
    {"systemErrorPrimary",   {"#fff22a41", "#fff22a41"}},
    {"greenPrimary",         {"#ff6ad62b 0 #ff1ca88c 1", "#ff6ad62b 0 #ff1ca88c 1"}},
    {"greenSubPrimary",      {"#296ad62b 0 #291ca88c 1", "#296ad62b 0 #291ca88c 1"}},
    {"greenDisabled",        {"#9981dc4c 0 #9941b79d 1", "#9981dc4c 0 #9941b79d 1"}},
    {"purplePrimary",        {"invalid",   "#ff8c8cff"}},
    {"purpleSubPrimary",     {"invalid",   "#ff9c9cff"}},
    {"purpleSecondary",      {"invalid",   "#ffababff"}},
    {"purpleDisabled",       {"invalid",   "#478c8cff"}},
    {"purpleBorder",         {"invalid",   "#338c8cff"}},
    {"purpleBackground",     {"invalid",   "#1f8c8cff"}},
};
// clang-format on

QString Text(const QVariant& value)
{
    if (const auto* gradient = value.value<Gradient*>())
        return Text(gradient->property("startColor")) + ' ' +
               gradient->property("startPoint").toString() + ' ' +
               Text(gradient->property("stopColor")) + ' ' +
               gradient->property("stopPoint").toString();
    const auto color = value.value<QColor>();
    return color.isValid() ? color.name(QColor::HexArgb) : "invalid";
}

TEST(Palettes, GiveEachRoleItsColor)
{
    const auto factory = CreatePaletteFactory();
    const auto light = factory->GetPalette(PaletteId::Light);
    const auto dark = factory->GetPalette(PaletteId::Dark);
    const auto& meta = IPalette::staticMetaObject;
    EXPECT_EQ(meta.propertyCount() - meta.propertyOffset(), 41);
    std::size_t found = 0;
    for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index)
    {
        const auto property = meta.property(index);
        const auto row = Valued.find(property.name());
        found += row == Valued.end() ? 0 : 1;
        const auto colors = row == Valued.end() ? Colors{"invalid", "invalid"} : row->second;
        EXPECT_EQ(Text(property.read(light.get())), colors.light) << property.name();
        EXPECT_EQ(Text(property.read(dark.get())), colors.dark) << property.name();
    }
    EXPECT_EQ(found, Valued.size());
}

TEST(PaletteFactory, MakesEachPaletteOnceAndWarnsOfAnUnknownOneEachTime)
{
    const tvo::logger::testing::RecordingLogger log;
    const auto factory = CreatePaletteFactory();
    const auto dark = factory->GetPalette(PaletteId::Dark);
    EXPECT_EQ(factory->GetPalette(PaletteId::Dark), dark);
    EXPECT_EQ(factory->GetPalette(PaletteId{3}), nullptr);
    EXPECT_EQ(factory->GetPalette(PaletteId{3}), nullptr);
    EXPECT_EQ(log.Lines().size(), 2U);
    EXPECT_TRUE(log.Contains(tvo::logger::LogLevel::Warning, "Palette for id: 3 not found"));
}

}  // namespace
}  // namespace vdi::uikit::utils::style
