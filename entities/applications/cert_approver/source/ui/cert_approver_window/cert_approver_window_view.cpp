#include "ui/cert_approver_window/cert_approver_window_view.h"

#include <array>
#include <ctime>
#include <utility>

#include <QDate>
#include <QQmlContext>
#include <QString>
#include <QTime>
#include <QVariant>

#include <component/plk/exceptions.h>
#include <shared/common_utils_ui/qt_callable_guard.h>
#include <shared/common_utils_ui/qt_invoker.h>

namespace cert_approver::ui {

namespace {

/// What QML reads from the context and this class writes.
enum class Property
{
    WinWidth,
    WinHeight,
    Address,
    Issuer,
    Subject,
    Validity,
    Fingerprint,
};

constexpr std::array PropertyNames =
    {"winWidth", "winHeight", "addressData", "issuer", "subject", "validData", "fingerprintData"};

constexpr int InitialWidth = 800;
constexpr int InitialHeight = 600;
constexpr char Placeholder[] = "-----------------------------";

void Set(QQmlContext& context, Property property, const QVariant& value)
{
    context.setContextProperty(QLatin1String(PropertyNames.at(static_cast<std::size_t>(property))),
                               value);
}

void SetText(QQmlContext& context, Property property, std::string_view utf8)
{
    Set(context, property, QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

std::tm ToLocalTime(std::int64_t microseconds)
{
    constexpr std::int64_t MicrosecondsASecond = 1'000'000;
    const std::time_t seconds = microseconds / MicrosecondsASecond;
    std::tm local{};
    tzset();
    localtime_r(&seconds, &local);
    return local;
}

}  // namespace

CertApproverWindowView::CertApproverWindowView(
    QQmlContext* context,
    std::unique_ptr<ICertApproverWindowPresenter> presenter,
    std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor> paletteIdInteractor,
    std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> paletteFactory,
    QObject* parent)
    : QObject(parent), m_context(context), m_presenter(std::move(presenter))
{
    ZIN_CHECK(m_context != nullptr, "QQmlContext context is null");
    ZIN_CHECK(m_presenter != nullptr, "CertApproverWindowPresenterPtr is not initialized!");
    ZIN_CHECK(paletteIdInteractor != nullptr, "PaletteIdInteractor is null");
    ZIN_CHECK(paletteFactory != nullptr, "PaletteFactory is null");
    m_paletteProvider = vdi::uikit::utils::style::CreatePaletteProvider(
        std::move(paletteFactory), std::move(paletteIdInteractor));
    SetInitialValues();
    m_presenter->SetView(this);
}

CertApproverWindowView::~CertApproverWindowView()
{
    m_presenter->SetView(nullptr);
}

void CertApproverWindowView::Show() noexcept
{
    // The flag lives on the Qt thread alone. Tested on the caller's thread, it could still be set
    // by the showing before, whose hiding is under way: nothing would be shown, and the caller
    // would wait for an answer to a question that nobody sees.
    vdi::common_utils_ui::QtInvoker<CertApproverWindowView>(this).Invoke(
        &CertApproverWindowView::ShowHere);
}

bool CertApproverWindowView::IsVisible() const noexcept
{
    return m_visible;
}

void CertApproverWindowView::Hide() noexcept
{
    if (!m_visible)
    {
        return;
    }
    m_visible = false;
    emit VisibleChanged(QPrivateSignal());
    m_presenter->OnHide();
}

void CertApproverWindowView::SetSystemLanguage(std::string_view language) noexcept
{
    const QLocale locale(
        QString::fromUtf8(language.data(), static_cast<qsizetype>(language.size())));
    if (locale != m_locale)
    {
        m_locale = locale;
    }
}

void CertApproverWindowView::Resize(int width, int height) noexcept
{
    Set(*m_context, Property::WinWidth, width);
    Set(*m_context, Property::WinHeight, height);
}

void CertApproverWindowView::SetCertificateData(const CertViewData& data) noexcept
{
    SetText(*m_context, Property::Address, data.address);
    SetText(*m_context, Property::Issuer, data.issuer);
    SetText(*m_context, Property::Subject, data.subject);
    SetText(*m_context, Property::Fingerprint, data.fingerprint);
    Set(*m_context,
        Property::Validity,
        ValidityText(data.validFrom) + QLatin1String(" - ") + ValidityText(data.validTo));
}

std::unique_ptr<::common::utils::ICallableGuard> CertApproverWindowView::GetGuardView() const
{
    // The guard asks whether the object lives, and nothing else of it.
    auto* self = const_cast<CertApproverWindowView*>(this);
    return std::make_unique<vdi::common_utils_ui::QtCallableGuard>(self);
}

void CertApproverWindowView::Close() noexcept
{
    m_presenter->OnCloseActivated();
}

void CertApproverWindowView::Approve() noexcept
{
    m_presenter->OnApproveActivated();
}

void CertApproverWindowView::ShowHere() noexcept
{
    if (m_visible)
    {
        return;
    }
    m_visible = true;
    emit VisibleChanged(QPrivateSignal());
    m_presenter->OnShow();
}

void CertApproverWindowView::SetInitialValues()
{
    m_context->setContextProperty(QStringLiteral("paletteProvider"), m_paletteProvider.get());
    m_context->setContextProperty(QStringLiteral("certApproverContext"), this);
    Resize(InitialWidth, InitialHeight);
    for (const auto property : {Property::Address,
                                Property::Issuer,
                                Property::Subject,
                                Property::Validity,
                                Property::Fingerprint})
    {
        SetText(*m_context, property, Placeholder);
    }
}

QString CertApproverWindowView::ValidityText(std::int64_t microseconds) const
{
    const std::tm local = ToLocalTime(microseconds);
    const QDate date(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    const QTime time(local.tm_hour, local.tm_min, local.tm_sec, 0);
    return m_locale.toString(date, tr("dd.MM.yyyy")) + QLatin1Char(' ') +
           m_locale.toString(time, tr("hh:mm"));
}

}  // namespace cert_approver::ui
