#include "endpoint.h"

#include <string>

#include <gtest/gtest.h>

#include <tools/cert_approve/failure.h>

using cert_approve::IsAddress;
using cert_approve::ParseEndpoint;

TEST(Endpoint, ReadsHostAndPort)
{
    EXPECT_EQ(ParseEndpoint("server.test:443").host, "server.test");
    EXPECT_EQ(ParseEndpoint("192.0.2.1:65535").port, "65535");
    EXPECT_EQ(ParseEndpoint("[fe80::1%eth0]:8443").host, "fe80::1%eth0");
    EXPECT_TRUE(IsAddress("192.0.2.1") && IsAddress("::1"));
    EXPECT_FALSE(IsAddress("192.0.2.test"));
}

TEST(Endpoint, RefusesEverythingElse)
{
    for (const char* const text : {"",
                                   "host",
                                   ":443",
                                   "host:",
                                   "host:0",
                                   "host:65536",
                                   "host:https",
                                   "host:443 ",
                                   "host:+443",
                                   "::1:443",
                                   "[]:443",
                                   "[::1]",
                                   "[host]:443",
                                   "[::1:443",
                                   "a b:443",
                                   "https://host:443"})
    {
        EXPECT_THROW(ParseEndpoint(text), cert_approve::Failure) << text;
    }
}
