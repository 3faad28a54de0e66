#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <QGuiApplication>
#include <QRect>

#include <component/plk/result_codes.h>
#include <shared/common_utils_ui/window/window_resizer.h>

#include "business/i_cert_approver_cert_data_interactor.h"
#include "business/i_cert_approver_verdict_interactor.h"
#include "language_reader_factory.h"

namespace cert_approver::test {

/// A QGuiApplication for one test case.
class GuiApplication
{
    int m_argc = 1;
    char m_name[5] = "test";
    char* m_argv[2] = {m_name, nullptr};
    QGuiApplication m_application{m_argc, m_argv};
};

struct FakeVerdictSetter : interactors::ICertApproverVerdictSetter
{
    int SetUserVerdict(Verdict verdict) noexcept override
    {
        verdicts.push_back(verdict);
        if (onVerdict)
        {
            onVerdict();
        }
        return plk::codes::Ok;
    }

    std::vector<Verdict> verdicts;
    std::function<void()> onVerdict;  ///< what the caller, released now, does at once
};

struct FakeCertDataGetter : interactors::ICertApproverCertDataGetter
{
    int GetCertificateData(certs::cert_service::CertData& data) const noexcept override
    {
        data = certificate;
        return plk::codes::Ok;
    }

    certs::cert_service::CertData certificate;
};

struct FakeLanguageReader : ILanguageReader
{
    explicit FakeLanguageReader(std::string value) : language(std::move(value)) {}

    [[nodiscard]] std::string ReadValue() const override
    {
        return language;
    }
    [[nodiscard]] bool IsReadOnly() const override
    {
        return true;
    }
    void RegisterCallback(std::function<void()>) override {}
    void UnregisterCallback() override {}

    std::string language;
};

struct FakeWindowResizer : vdi::common_utils_ui::window::IWindowResizer
{
    void RegisterWindow(Window window, Callback callback) override
    {
        registered.emplace_back(std::move(window), std::move(callback));
    }
    void UnregisterWindow(Window) override {}
    [[nodiscard]] QRect GetPrimaryScreenGeometry() const override
    {
        return screen;
    }

    QRect screen{0, 0, 1280, 800};
    std::vector<std::pair<Window, Callback>> registered;
};

}  // namespace cert_approver::test
