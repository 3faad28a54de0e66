#include "ui/cert_approver_window/cert_approver_window_factory.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/process_exception.h>

#include "fakes.h"
#include "register_qml.h"

static void RemoveDocuments()
{
    Q_CLEANUP_RESOURCE(cert_approver_qml);
}

static void RestoreDocuments()
{
    Q_INIT_RESOURCE(cert_approver_qml);
}

namespace cert_approver::ui {
namespace {

using tvo::logger::LogLevel;

struct CertApproverWindowFactoryTest : ::testing::Test
{
    CertApproverWindowFactoryTest()
    {
        RegisterQml();
        paletteId->SetPaletteId(vdi::uikit::utils::style::PaletteId::Dark);
    }

    CertApproverWindowFactory Factory()
    {
        return {&engine, getter, setter, languages, resizer, paletteId, palettes};
    }

    test::GuiApplication application;
    tvo::logger::testing::RecordingLogger log;
    std::shared_ptr<test::FakeCertDataGetter> getter = std::make_shared<test::FakeCertDataGetter>();
    std::shared_ptr<test::FakeVerdictSetter> setter = std::make_shared<test::FakeVerdictSetter>();
    std::shared_ptr<test::FakeWindowResizer> resizer = std::make_shared<test::FakeWindowResizer>();
    std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor> paletteId =
        vdi::uikit::utils::style::CreatePaletteIdInteractor();
    std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> palettes =
        vdi::uikit::utils::style::CreatePaletteFactory();
    LanguageReaderFactory languages = [](const std::string& fallback)
    {
        return std::make_unique<test::FakeLanguageReader>(fallback);
    };
    QQmlApplicationEngine engine;
};

TEST_F(CertApproverWindowFactoryTest, GivesNoWindowWithoutItsDocument)
{
    RemoveDocuments();
    EXPECT_EQ(Factory().CreateWindow(), nullptr);
    RestoreDocuments();
    EXPECT_TRUE(log.Contains(
        LogLevel::Error,
        "Creation failed, with qrc:/qml/cert_approver/Window.qml is not loaded error!"));
}

TEST_F(CertApproverWindowFactoryTest, GivesNoWindowWithoutALanguageReader)
{
    languages = [](const std::string&) -> std::unique_ptr<ILanguageReader>
    {
        throw std::runtime_error("no settings");
    };
    EXPECT_EQ(Factory().CreateWindow(), nullptr);
    EXPECT_TRUE(log.Contains(LogLevel::Error, "Creation failed, with no settings error!"));
}

TEST_F(CertApproverWindowFactoryTest, NamesTheFirstMissingCollaborator)
{
    const auto failure = [](auto&&... collaborators)
    {
        try
        {
            const CertApproverWindowFactory broken(collaborators...);
        }
        catch (...)
        {
            return plk::utils::ProcessException().second;
        }
        return std::string();
    };
    using ::testing::HasSubstr;
    const QPointer<QQmlApplicationEngine> here(&engine);
    EXPECT_THAT(failure(nullptr, nullptr, setter, languages, resizer, paletteId, palettes),
                HasSubstr("QQmlEngine is null"));
    EXPECT_THAT(failure(here, nullptr, nullptr, languages, resizer, paletteId, palettes),
                HasSubstr("CertApproverCertDataGetter is null"));
    EXPECT_THAT(failure(here, getter, nullptr, nullptr, resizer, paletteId, palettes),
                HasSubstr("CertApproverVerdictSetter is null"));
    EXPECT_THAT(failure(here, getter, setter, nullptr, nullptr, paletteId, palettes),
                HasSubstr("LanguageReaderFactory is null"));
    EXPECT_THAT(failure(here, getter, setter, languages, nullptr, nullptr, palettes),
                HasSubstr("WindowResizer is null"));
    EXPECT_THAT(failure(here, getter, setter, languages, resizer, nullptr, nullptr),
                HasSubstr("PaletteIdInteractor is null"));
    EXPECT_THAT(failure(here, getter, setter, languages, resizer, paletteId, nullptr),
                HasSubstr("PaletteFactory is null"));
}

}  // namespace
}  // namespace cert_approver::ui
