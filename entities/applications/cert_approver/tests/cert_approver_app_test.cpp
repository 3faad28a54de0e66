#include "cert_approver_app.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/process_exception.h>

#include "fakes.h"
#include "register_qml.h"

namespace cert_approver {
namespace {

using ::testing::HasSubstr;

struct OsApplicationTest : ::testing::Test
{
    OsApplicationTest()
    {
        RegisterQml();
    }

    OsApplication Make()
    {
        return {QStringLiteral("cert_approver"), languages, resizer, &engine};
    }

    void SetLanguage(const char* language)
    {
        languages = [language](const std::string&)
        {
            return std::make_unique<test::FakeLanguageReader>(language);
        };
    }

    test::GuiApplication application;
    tvo::logger::testing::RecordingLogger log;
    QQmlApplicationEngine engine;
    std::shared_ptr<test::FakeWindowResizer> resizer = std::make_shared<test::FakeWindowResizer>();
    LanguageReaderFactory languages = [](const std::string& fallback)
    {
        return std::make_unique<test::FakeLanguageReader>(fallback);
    };
};

TEST_F(OsApplicationTest, NamesTheQtApplication)
{
    const auto named = Make();
    EXPECT_EQ(QCoreApplication::applicationName(), QStringLiteral("cert_approver"));
    EXPECT_EQ(QCoreApplication::organizationName(), QStringLiteral("Vantelore"));
}

TEST_F(OsApplicationTest, ComesUpInRussianWithoutALanguage)
{
    auto unset = Make();
    EXPECT_EQ(unset.Language(), "en_EN");
    unset.installTranslator();
    EXPECT_EQ(QCoreApplication::translate("CertApproverWindowView", "$Cancel$"),
              QString::fromUtf8("\u041E\u0442\u043C\u0435\u043D\u0430"));
}

TEST_F(OsApplicationTest, EveryLanguageHasEveryText)
{
    const char* keys[] = {"$Add certificate$",
                          "$Description$",
                          "$AddressLabel$",
                          "$Issuer$",
                          "$Subject$",
                          "$Valid$",
                          "$Fingerprint$",
                          "$Warning$",
                          "$Approve$",
                          "$Cancel$"};
    for (const auto* language : {"en-US", "es-MX", "pt-BR", "ru-RU"})
    {
        SetLanguage(language);
        auto translated = Make();
        translated.installTranslator();
        for (const auto* key : keys)
        {
            SCOPED_TRACE(std::string(language) + key);
            EXPECT_NE(QCoreApplication::translate("CertApproverWindowView", key),
                      QLatin1String(key));
        }
        EXPECT_EQ(QCoreApplication::translate("CertApproverWindowView", "$AddressLabel$")
                      .count(QLatin1Char('\n')),
                  1);
    }
}

TEST_F(OsApplicationTest, SurvivesAMissingTranslation)
{
    OsApplication untranslated(QStringLiteral("nobody"), languages, resizer, &engine);
    untranslated.installTranslator();
    EXPECT_TRUE(log.Contains(tvo::logger::LogLevel::Error, "Failed translator installation!"));
}

TEST_F(OsApplicationTest, NamesTheFirstMissingCollaborator)
{
    const auto failure = [](auto&&... collaborators)
    {
        try
        {
            const OsApplication broken(QStringLiteral("cert_approver"), collaborators...);
        }
        catch (...)
        {
            return plk::utils::ProcessException().second;
        }
        return std::string();
    };
    EXPECT_THAT(failure(nullptr, nullptr, nullptr), HasSubstr("LanguageReaderFactory is null"));
    EXPECT_THAT(failure(languages, nullptr, nullptr), HasSubstr("WindowResizer is null"));

    auto gone = std::make_unique<QQmlApplicationEngine>();
    const QPointer<QQmlApplicationEngine> pointer(gone.get());
    gone.reset();
    EXPECT_THAT(failure(languages, resizer, pointer), HasSubstr("QQmlApplicationEngine is null"));
}

}  // namespace
}  // namespace cert_approver
