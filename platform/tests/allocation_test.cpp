// Nothing is allocated for a message, neither by the caller nor by the server.

#include <atomic>
#include <cstdlib>
#include <new>

#include "server_process.h"

namespace {

thread_local std::size_t t_allocations = 0;
std::atomic<bool> g_refuses = false;

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++t_allocations;
    if (void* memory = g_refuses ? nullptr : std::malloc(size))
    {
        return memory;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace platform::tests {

void RefuseMemory()
{
    g_refuses = true;
}

namespace {

TEST(Transport, AllocatesNothingPerMessage)
{
    Endpoint endpoint("allocations");
    std::size_t onServer = 1;
    std::thread server(
        [&]
        {
            Letter request(80, 65536);
            for (int round = 0; round < 20; ++round)
            {
                request.Head().size = 80;
                ASSERT_EQ(Receive(endpoint.transport, request), XoOk);
                ASSERT_EQ(Reply(endpoint.transport, request), XoOk);
                // The first round makes the thread's buffer and the connection.
                t_allocations = round == 0 ? 0 : t_allocations;
            }
            onServer = t_allocations;
        });
    Client client("allocations");
    Letter request(80, 65536);
    request.arena.current = request.arena.end;
    Letter response(80, 65536);
    for (int round = 0; round < 20; ++round)
    {
        ASSERT_EQ(Call(client.transport, request, response), XoOk);
        t_allocations = round == 0 ? 0 : t_allocations;
    }
    EXPECT_EQ(t_allocations, 0U);
    server.join();
    EXPECT_EQ(onServer, 0U);
}

}  // namespace
}  // namespace platform::tests
