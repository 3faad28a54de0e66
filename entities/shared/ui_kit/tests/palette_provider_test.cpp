#include <stdexcept>

#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/exceptions.h>
#include <shared/ui_kit/style/palette_provider.h>

namespace vdi::uikit::utils::style {
namespace {

using tvo::logger::LogLevel;

class PaletteProviderTest : public ::testing::Test
{
protected:
    PaletteProviderTest()
    {
        m_interactor->SetPaletteId(PaletteId::Dark);
        m_provider = CreatePaletteProvider(m_factory, m_interactor);
        QObject::connect(
            m_provider.get(), &PaletteProvider::PaletteChanged, [this] { ++m_switches; });
    }

    tvo::logger::testing::RecordingLogger m_log;
    std::shared_ptr<IPaletteFactory> m_factory = CreatePaletteFactory();
    std::shared_ptr<IPaletteIdInteractor> m_interactor = CreatePaletteIdInteractor();
    std::shared_ptr<PaletteProvider> m_provider;
    int m_switches = 0;
};

TEST_F(PaletteProviderTest, SwitchesOnceAndKeepsTheOldPaletteAlive)
{
    EXPECT_TRUE(m_log.Contains(LogLevel::Debug, "No callback, set parameter only"));
    const auto* dark = m_provider->Palette();
    m_interactor->SetPaletteId(PaletteId::Light);
    m_interactor->SetPaletteId(PaletteId::Light);
    EXPECT_EQ(m_switches, 1);
    EXPECT_EQ(m_provider->Palette()->Id(), PaletteId::Light);
    EXPECT_EQ(dark->Id(), PaletteId::Dark);
}

TEST_F(PaletteProviderTest, KeepsItsPaletteAtAnUnknownIdentifier)
{
    m_interactor->SetPaletteId(PaletteId{3});
    EXPECT_EQ(m_switches, 0);
    EXPECT_EQ(m_provider->Palette()->Id(), PaletteId::Dark);
    EXPECT_EQ(m_interactor->GetPaletteId(), PaletteId{3});
}

TEST_F(PaletteProviderTest, LogsWhatAListenerThrowsDuringASwitch)
{
    QObject::connect(m_provider.get(),
                     &PaletteProvider::PaletteChanged,
                     [] { throw std::runtime_error("no paint"); });
    EXPECT_NO_THROW(m_interactor->SetPaletteId(PaletteId::Light));
    EXPECT_TRUE(m_log.Contains(LogLevel::Critical,
                               "Failed to change palette, std::exception: no paint with result: "
                               "-2147483573"));
}

TEST_F(PaletteProviderTest, IsTheOnlyListenerUntilItDies)
{
    EXPECT_THROW(CreatePaletteProvider(m_factory, m_interactor), zin::CheckFailedException);
    m_provider.reset();
    EXPECT_NO_THROW(m_interactor->SetPaletteId(PaletteId::Light));
    EXPECT_NO_THROW(CreatePaletteProvider(m_factory, m_interactor));
}

TEST_F(PaletteProviderTest, RefusesWhatItCannotWorkWith)
{
    const auto unset = CreatePaletteIdInteractor();
    EXPECT_THROW(CreatePaletteProvider(m_factory, unset), zin::CheckFailedException);
    unset->SetPaletteId(PaletteId{3});
    EXPECT_THROW(CreatePaletteProvider(m_factory, unset), zin::CheckFailedException);
    EXPECT_THROW(CreatePaletteProvider(nullptr, m_interactor), zin::CheckFailedException);
    EXPECT_THROW(CreatePaletteProvider(m_factory, nullptr), zin::CheckFailedException);
}

}  // namespace
}  // namespace vdi::uikit::utils::style
