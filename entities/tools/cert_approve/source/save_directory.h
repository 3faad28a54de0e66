#pragma once

#include <string>

#include <tools/cert_approve/certificate.h>

#include "descriptor.h"

namespace cert_approve {

/// A folder that approved certificates are written to, each under the name of its SHA-256 digest.
class SaveDirectory
{
public:
    /// @throws Failure  BadInput when it is no folder or may not be written
    explicit SaveDirectory(std::string path);

    /// Writes the certificate in PEM form: whole or not at all, never through a link and never over
    /// something else. A certificate that is there already is left as it is.
    /// @returns the path of the file
    /// @throws Failure  BadInput
    [[nodiscard]] std::string Save(const Certificate& certificate) const;

private:
    [[noreturn]] void FailSave(const std::string& name, const std::string& reason) const;
    void WriteNew(const std::string& name, const std::string& pem) const;
    [[nodiscard]] bool Holds(const std::string& name, const std::string& pem) const;

    std::string m_path;
    Descriptor m_directory;
};

}  // namespace cert_approve
