#include <QLocale>
#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/result_codes.h>
#include <shared/common_utils_ui/translate/translation_installer.h>

#include "gui_application.h"

namespace vdi::common_utils_ui::translate {
namespace {

using tvo::logger::LogLevel;
using Resources = std::vector<std::string>;

/// Installs from a folder with `greeting` in Russian and Portuguese, `farewell` in Russian, and
/// `nothing`, a Russian file without a single text.
class TranslationInstallerTest : public ::testing::Test
{
protected:
    static std::string Text(const char* source)
    {
        return QCoreApplication::translate("Test", source).toStdString();
    }

    tvo::logger::testing::RecordingLogger m_log;
    GuiApplication m_application;
    std::unique_ptr<ITranslationInstaller> m_installer =
        CreateTranslationInstaller(TVO_TEST_TRANSLATIONS);
};

TEST_F(TranslationInstallerTest, PrefersTheNewestLanguageAndTakesAllAwayAtItsEnd)
{
    EXPECT_EQ(m_installer->Install(Resources{"greeting", "farewell"}, "ru-RU"), plk::codes::Ok);
    EXPECT_EQ(m_installer->Install("greeting", "pt-BR"), plk::codes::Ok);
    EXPECT_EQ(QLocale{}.name(), "pt_BR");
    EXPECT_EQ(Text("hello") + Text("bye"), "olapoka");
    m_installer.reset();
    EXPECT_EQ(Text("hello") + Text("bye"), "hellobye");
}

TEST_F(TranslationInstallerTest, TakesRussianForEveryOtherText)
{
    for (const std::string name : {"en_EN", "pt-br", "ru_RU", "pt", "", "pt-BR "})
    {
        EXPECT_EQ(m_installer->Install("greeting", name), plk::codes::Ok) << name;
        EXPECT_EQ(Text("hello"), "privet") << name;
        EXPECT_TRUE(m_log.Contains(
            LogLevel::Warning, "Unable to determine locale <" + name + ">. Default is <ru_RU>"));
    }
}

TEST_F(TranslationInstallerTest, KeepsTheLocaleOfALanguageWithoutAFile)
{
    EXPECT_EQ(m_installer->Install("greeting", "es-MX"), plk::codes::UnspecifiedError);
    EXPECT_EQ(QLocale{}.name(), "es_MX");
    EXPECT_TRUE(m_log.Contains(LogLevel::Error,
                               "Translation file <greeting> for <es_MX> language wasn't loaded"));
}

TEST_F(TranslationInstallerTest, FailsOnAFileThatQtRefuses)
{
    EXPECT_EQ(m_installer->Install("nothing", "ru-RU"), plk::codes::UnspecifiedError);
    EXPECT_TRUE(m_log.Contains(LogLevel::Error,
                               "Failed to complete the installation of the <ru_RU> language "
                               "translator for the resource <nothing>"));
}

TEST_F(TranslationInstallerTest, StopsAListAtItsFirstFailure)
{
    EXPECT_EQ(m_installer->Install(Resources{}, "ru-RU"), plk::codes::NotSupported);
    EXPECT_EQ(m_installer->Install(Resources{"greeting", "", "farewell"}, "ru-RU"),
              plk::codes::NotSupported);
    EXPECT_EQ(Text("hello") + Text("bye"), "privetbye");
}

}  // namespace
}  // namespace vdi::common_utils_ui::translate
