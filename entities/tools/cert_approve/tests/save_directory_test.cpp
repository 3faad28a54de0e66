#include "save_directory.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <tools/cert_approve/failure.h>
#include <tools/cert_approve/testing/make_certificate.h>

#include "temp_directory.h"

namespace {

using cert_approve::Certificate;
using cert_approve::Failure;
using cert_approve::SaveDirectory;
using cert_approve::testing::MakeCertificate;

std::string Content(const std::filesystem::path& path)
{
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

}  // namespace

TEST(SaveDirectory, ReplacesNothingAndFollowsNoLink)
{
    const cert_approve::TempDirectory temp;
    const SaveDirectory directory(temp.path);
    const Certificate certificate(MakeCertificate().Der());
    const std::string path = directory.Save(certificate);
    EXPECT_EQ(directory.Save(certificate), path) << "the same again is no failure";
    EXPECT_EQ(Content(path), certificate.Pem());

    std::ofstream(path, std::ios::app) << "changed";
    EXPECT_THROW(static_cast<void>(directory.Save(certificate)), Failure);
    EXPECT_TRUE(Content(path).ends_with("changed"));

    std::filesystem::remove(path);
    const std::string other = temp.Write("other", "other");
    std::filesystem::create_symlink(other, path);
    EXPECT_THROW(static_cast<void>(directory.Save(certificate)), Failure);
    EXPECT_EQ(Content(other), "other");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(temp.path), {}), 2)
        << "no unfinished file is left";
}
