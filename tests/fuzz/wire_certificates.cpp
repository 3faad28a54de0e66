#include <component/cert_approver/tvo_ipc/wz_cert_approver_types.h>

#include "fuzz_target.h"
#include "input.h"

namespace fuzz {
namespace {

using Record = vx_cert_approver_Types_CertData;

/// A record with the arena behind it, as a server has received them.
void Run(std::string_view bytes)
{
    if (bytes.size() < sizeof(Record))
    {
        return;
    }
    const auto record = Input(bytes).Take<Record>();
    std::vector<unsigned char> storage(bytes.begin() + sizeof(record), bytes.end());
    unsigned char* const end = storage.data() + storage.size();
    const wz_arena arena{storage.data(), end, end};

    const auto data = cert_approver::common::CastFromWz(record, &arena);
    for (const std::string* text : {&data.issuer, &data.subject, &data.fingerprint, &data.address})
    {
        Require(text->size() <= storage.size(), "a text lies inside the arena");
        Require(text->empty() || bytes.find(*text, sizeof(record)) != bytes.npos,
                "a text is what was received");
    }
    tvo::ipc::arena::conv::Status status{true};
    Require(tvo::ipc::arena::conv::FromWz(arena, record, status) == data, "both readers agree");

    tvo::ipc::arena::Buffer buffer(1024);
    status = true;
    const Record written = tvo::ipc::arena::conv::ToWz(*buffer.Get(), data, status);
    Require(!status || cert_approver::common::CastFromWz(written, buffer.Get()) == data,
            "what was read can be passed on");
}

std::string Seed(const Record& record, const std::string& arena)
{
    return BytesOf(record) + arena;
}

std::vector<std::string> Seeds()
{
    constexpr std::uint32_t Invalid = tvo::ipc::arena::InvalidReference;
    const std::string arena = "CN=issuerCN=subjectSHA-256 0011host:1";
    return {
        "",
        Seed({{0, 9}, {9, 10}, -1, INT64_MAX, {19, 12}, {31, 6}}, arena),
        Seed({{0, 0}, {1, 0}, 0, 0, {2, 0}, {3, 0}}, "    "),
        Seed({{Invalid, Invalid}, {36, 2}, 0, 0, {37, 0}, {0xFFFFFFF0U, 0x20}}, arena),
        Seed({{0, 38}, {0, 37}, INT64_MIN, 0, {1, 0xFFFFFFFFU}, {5, 5}}, arena),
        Seed({{0, 256}, {256, 256}, 0, 0, {512, 128}, {640, 256}}, std::string(896, 'x')),
        Seed({{0, 257}, {0, 900}, 0, 0, {0, 129}, {0, 1}}, std::string(900, '\xFF')),
        Seed({}, ""),
    };
}

}  // namespace

const Target WireCertificates{"wire_certificates", &Run, &Seeds};

}  // namespace fuzz
