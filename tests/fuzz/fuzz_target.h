#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// A parser of foreign bytes with what must hold for every input. One definition serves libFuzzer,
/// which invents inputs, and the plain test, which runs the seeds.
struct Target
{
    const char* name;
    void (*run)(std::string_view bytes);
    std::vector<std::string> (*seeds)();
};

extern const Target Packets;
extern const Target LockFiles;
extern const Target WireCertificates;
extern const Target CertificateTexts;
extern const Target PathTexts;
extern const Target RawSettings;
extern const Target SettingsRequests;

/// The seeds that the target makes, then those in the files of its folder `seeds/<name>`.
std::vector<std::string> AllSeeds(const Target& target);

/// Ends the process, which is how libFuzzer and death reports learn of a fault.
void Require(bool holds, const char* what);

}  // namespace fuzz
