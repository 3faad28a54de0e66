#include <algorithm>
#include <array>
#include <iterator>

#include <linux/input-event-codes.h>

#include "approval_fixture.h"

namespace {

using support::FindText;
using support::TextStyle;

constexpr TextStyle Title{.pixelSize = 24, .wrapWidth = 570};
constexpr TextStyle Description{.pixelSize = 16, .wrapWidth = 570};
constexpr TextStyle Warning{.pixelSize = 14, .wrapWidth = 570};
constexpr TextStyle Caption{.pixelSize = 14, .background = PanelGrey};
constexpr TextStyle ApproveCaption{.background = Purple, .demiBold = true};
constexpr TextStyle CancelCaption{.background = CancelGrey, .demiBold = true};

/// In the order of the texts of a language.
const TextStyle Styles[] = {Title,
                            Description,
                            Caption,
                            Caption,
                            Caption,
                            Caption,
                            Caption,
                            Caption,
                            ApproveCaption,
                            CancelCaption,
                            Warning};

struct Language
{
    const char* code;
    std::array<const char*, std::size(Styles)> texts;
};

void PrintTo(const Language& language, std::ostream* out)
{
    *out << language.code;
}

const Language Languages[] = {
    {"en-US",
     {"Add certificate",
      "To connect to the connection server, you must install the corresponding certificate in the "
      "system.",
      "IP address or name of the server",
      "you are connecting to",
      "Issuer name",
      "Subject name",
      "Certificate validity",
      "Certificate fingerprint",
      "Add certificate",
      "Cancel",
      "Installation of an unknown certificate could create an information security risk. Verify "
      "the fingerprint before adding the certificate. If you do not use the fingerprint to verify "
      "the authenticity of the certificate, you assume the resulting information security risk to "
      "your workstation and your organization."}},
    {"es-MX",
     {"Agregar certificado",
      "Para conectarse al servidor de conexión, debe instalar el certificado correspondiente en el "
      "sistema.",
      "IP o nombre del servidor",
      "al que se está conectando",
      "Nombre del emisor",
      "Nombre del sujeto",
      "Validez del certificado",
      "Huella digital del certificado",
      "Agregar certificado",
      "Cancelar",
      "La instalación de un certificado desconocido podría crear un riesgo para la seguridad de la "
      "información. Verifique la huella digital antes de agregar el certificado. Usted asume el "
      "riesgo de seguridad de la información para su estación de trabajo y su organización si "
      "decide no verificar la autenticidad del certificado con la huella digital."}},
    {"pt-BR",
     {"Adicionar certificado",
      "Para se conectar ao servidor de conexão, você deve instalar o certificado correspondente no "
      "sistema.",
      "Endereço IP ou nome do servidor",
      "ao qual você está se conectando",
      "Nome do emissor",
      "Nome do assunto",
      "Validade do certificado",
      "Impressão digital do certificado",
      "Adicionar certificado",
      "Cancelar",
      "A instalação de um certificado desconhecido pode ser um risco à segurança das informações. "
      "Verifique a impressão digital antes de adicionar o certificado. Você assume o risco à "
      "segurança das informações da sua estação de trabalho e da organização ao não verificar a "
      "autenticidade da impressão digital do certificado."}},
    {"ru-RU",
     {"Добавление сертификата",
      "Для соединения с сервером подключения требуется установить в системе соответствующий "
      "сертификат.",
      "IP-адрес или имя сервера, ",
      "к которому выполняется подключение",
      "Издатель",
      "Субъект",
      "Срок действия сертификата",
      "Отпечаток сертификата",
      "Добавить сертификат",
      "Отмена",
      "Установка неизвестного сертификата представляет риск информационной безопасности. Перед "
      "добавлением сертификата убедитесь в идентичности отпечатка этого сертификата. Если вы не "
      "проверили подлинность сертификата по его отпечатку, вы принимаете на себя риск "
      "информационной безопасности вашего рабочего места и вашей организации."}},
};

std::string GroupedFingerprint(const std::string& digits)
{
    std::string text = "SHA-256";
    for (std::size_t i = 0; i < digits.size(); i += 4)
    {
        text += ' ' + digits.substr(i, 4);
    }
    return text;
}

class TextsInEachLanguage : public ApprovalFixture, public testing::WithParamInterface<Language>
{
protected:
    TextsInEachLanguage() : ApprovalFixture({.language = GetParam().code}) {}
};

TEST_P(TextsInEachLanguage, AreThoseOfTheTable)
{
    const auto certificate = MakeCertificate(Named("server.example"));
    const auto caller =
        support::StartCaller({"--address", "192.0.2.1:8443", "-"}, certificate.Pem());
    ASSERT_TRUE(DialogShows("CN=server.example"));
    const QImage screen = display.Screen();
    for (std::size_t i = 0; i < std::size(Styles); ++i)
    {
        EXPECT_TRUE(FindText(screen, GetParam().texts[i], Styles[i])) << GetParam().texts[i];
    }
    for (const std::string& value : {std::string("192.0.2.1:8443"),
                                     std::string("CN=Example Authority"),
                                     std::string("01.01.2025 00:00 - 01.01.2026 00:00"),
                                     GroupedFingerprint(certificate.Sha256())})
    {
        EXPECT_TRUE(FindText(screen, value, PanelValue())) << value;
    }
}

INSTANTIATE_TEST_SUITE_P(,
                         TextsInEachLanguage,
                         testing::ValuesIn(Languages),
                         [](const auto& row) { return std::string(row.param.code, 2); });

class CallersTexts : public ApprovalFixture
{
protected:
    /// Rows of the screen that the information panel takes, found by its colour left of the texts.
    static QRect PanelOn(const QImage& screen)
    {
        const int x = DialogOn(screen.size()).left() + 50;
        QRect panel;
        for (int y = 0; y < screen.height(); ++y)
        {
            if (screen.pixel(x, y) == PanelGrey)
            {
                panel |= QRect(0, y, screen.width(), 1);
            }
        }
        return panel;
    }

    /// The screen with the information panel painted over.
    static QImage AroundPanel(QImage screen)
    {
        const QRect panel = PanelOn(screen);
        for (int y = panel.top(); y <= panel.bottom(); ++y)
        {
            std::fill_n(reinterpret_cast<QRgb*>(screen.scanLine(y)), screen.width(), Black);
        }
        return screen;
    }
};

TEST_F(CallersTexts, AreNoMarkup)
{
    CertificateSpec spec;
    spec.subject = {{"CN", "<b>x</b><img src='file:///etc/passwd'>"}};
    spec.issuer = CertificateSpec::Name{{"CN", "&lt;<h1>big</h1>"}};
    const std::string address = "<b>x</b><img src=\"a.png\">";
    const auto caller = Ask(spec, {"--address", address});
    ASSERT_TRUE(DialogShows(address));
    const QImage screen = display.Screen();
    // RFC 2253 escapes angle brackets.
    EXPECT_TRUE(
        FindText(screen, R"(CN=\<b\>x\</b\>\<img src='file:///etc/passwd'\>)", PanelValue()));
    EXPECT_TRUE(FindText(screen, R"(CN=&lt\;\<h1\>big\</h1\>)", PanelValue()));
}

TEST_F(CallersTexts, ThatOverflowEveryLimitStayInTheirPanel)
{
    auto caller = AskAndWait("server.example");
    const QImage usual = display.Screen();
    ASSERT_EQ(PanelOn(usual).height(), 250);
    display.PressKey(KEY_ESC);
    ASSERT_EQ(caller->ExitStatus(), 1);
    ASSERT_TRUE(display.WaitForNoToplevel());

    CertificateSpec spec = Named("");
    spec.subject = {{"CN", std::string(100'000, 'W')}, {"O", std::string(1000, 'i')}};
    spec.issuer = CertificateSpec::Name{{"CN", "Wide " + std::string(300, 'M')},
                                        {"O", "many words " + std::string(500, '-')}};
    spec.notAfter = "99991231235959Z";
    const auto certificate = MakeCertificate(spec);
    caller = support::StartCaller({"--address", std::string(1000, 'A'), "-"}, certificate.Pem());
    ASSERT_TRUE(DialogShows(GroupedFingerprint(certificate.Sha256())));
    const QImage overflowing = display.Screen();
    EXPECT_TRUE(FindText(overflowing, "01.01.2025 00:00 - 31.12.9999 23:59", PanelValue()));
    EXPECT_EQ(PanelOn(overflowing), PanelOn(usual));
    EXPECT_NE(overflowing, usual);
    EXPECT_EQ(AroundPanel(overflowing), AroundPanel(usual));
    display.PressKey(KEY_ENTER);
    EXPECT_EQ(caller->ExitStatus(), 0);
}

}  // namespace
