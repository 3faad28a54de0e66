#include "options.h"

#include <CLI/CLI.hpp>

#include <tools/cert_approve/failure.h>

namespace cert_approve {
namespace {

constexpr const char* Description =
    "Shows a certificate to the person at the terminal and prints the verdict: approve or close.";

constexpr const char* Footer =
    "Exit status: 0 approved, 1 closed, 2 wrong use or no usable certificate,\n"
    "3 server not reachable, 4 approval service absent or failed.";

void Declare(CLI::App& app, Options& options)
{
    auto* const file = app.add_option(
        "FILE", options.file, "certificate in PEM or DER form, - for standard input");
    auto* const connect =
        app.add_option("--connect", options.connect, "ask the TLS server at this place")
            ->type_name("HOST:PORT")
            ->excludes(file);
    app.add_option(
           "--servername", options.serverName, "name to ask the server for, instead of HOST")
        ->type_name("NAME")
        ->needs(connect);
    app.add_option("--address", options.address, "address to show, instead of HOST:PORT")
        ->type_name("TEXT");
    app.add_option("--save", options.saveDirectory, "folder to write an approved certificate to")
        ->type_name("DIR");
    app.add_flag("--json", options.isJson, "print the verdict and what was shown as JSON");
    app.footer(Footer);
}

}  // namespace

Options ParseOptions(int argc, const char* const* argv)
{
    Options options;
    CLI::App app(Description, "cert_approve");
    Declare(app, options);
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::CallForHelp&)
    {
        options.help = app.help();
        return options;
    }
    catch (const CLI::ParseError& error)
    {
        throw Failure(ExitStatus::BadInput, error.what());
    }
    if (options.file.empty() && options.connect.empty())
    {
        throw Failure(ExitStatus::BadInput, "FILE, - or --connect HOST:PORT is needed");
    }
    return options;
}

}  // namespace cert_approve
