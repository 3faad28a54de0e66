#include "run.h"

#include <chrono>
#include <cstddef>
#include <exception>
#include <optional>
#include <ostream>
#include <string>

#include <tools/cert_approve/cert_record.h>
#include <tools/cert_approve/certificate.h>
#include <tools/cert_approve/failure.h>

#include "endpoint.h"
#include "input.h"
#include "options.h"
#include "report.h"
#include "save_directory.h"
#include "tls_leaf.h"

namespace cert_approve {
namespace {

using cert_approver::Verdict;

constexpr std::chrono::seconds ServerLimit{10};
constexpr std::size_t ErrorLineLimit = 1000;

Certificate LoadFile(const std::string& path)
{
    const std::string input = ReadInput(path);
    try
    {
        return Certificate(input);
    }
    catch (const Failure& failure)
    {
        throw Failure(failure.Status(),
                      (path == "-" ? "standard input" : path) + ": " + failure.what());
    }
}

Certificate Load(const Options& options)
{
    if (options.connect.empty())
    {
        return LoadFile(options.file);
    }
    const Endpoint endpoint = ParseEndpoint(options.connect);
    const bool hasName = options.serverName.empty() && !IsAddress(endpoint.host);
    return FetchLeaf(endpoint, hasName ? endpoint.host : options.serverName, ServerLimit);
}

ExitStatus Approve(const Options& options, const Ask& ask, std::ostream& out)
{
    // A folder that cannot be used is better known before a person is troubled.
    std::optional<SaveDirectory> directory;
    if (options.saveDirectory)
    {
        directory.emplace(*options.saveDirectory);
    }
    const Certificate certificate = Load(options);
    const auto certData = MakeCertData(certificate, options.address.value_or(options.connect));
    const Verdict verdict = ask(certData);
    std::string savedPath;
    if (directory && verdict == Verdict::Approve)
    {
        savedPath = directory->Save(certificate);
    }
    out << (options.isJson ? JsonReport(verdict, certData, savedPath) : VerdictText(verdict))
        << std::endl;
    return verdict == Verdict::Approve ? ExitStatus::Approved : ExitStatus::Closed;
}

ExitStatus Report(std::ostream& err, ExitStatus status, const char* text)
{
    err << "cert_approve: " << DisplayText(text, ErrorLineLimit) << std::endl;
    return status;
}

ExitStatus RunChecked(int argc,
                      const char* const* argv,
                      const Ask& ask,
                      std::ostream& out,
                      std::ostream& err)
try
{
    const Options options = ParseOptions(argc, argv);
    if (!options.help.empty())
    {
        out << options.help << std::flush;
        return ExitStatus::Approved;
    }
    return Approve(options, ask, out);
}
catch (const Failure& failure)
{
    return Report(err, failure.Status(), failure.what());
}
catch (const std::exception& exception)
{
    return Report(err, ExitStatus::ServiceFailed, exception.what());
}

}  // namespace

int Run(int argc, const char* const* argv, const Ask& ask, std::ostream& out, std::ostream& err)
{
    return static_cast<int>(RunChecked(argc, argv, ask, out, err));
}

}  // namespace cert_approve
