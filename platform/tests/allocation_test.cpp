// Nothing is allocated for a message, neither by the caller nor by the server.

#include "allocation_counter.h"
#include "server_process.h"

namespace platform::tests {
namespace {

TEST(Transport, AllocatesNothingPerMessage)
{
    Endpoint endpoint("allocations");
    std::size_t onServer = 1;
    std::thread server(
        [&]
        {
            Letter request(80, 65536);
            std::size_t before = 0;
            for (int round = 0; round < 20; ++round)
            {
                request.Head().size = 80;
                ASSERT_EQ(Receive(endpoint.transport, request), XoOk);
                ASSERT_EQ(Reply(endpoint.transport, request), XoOk);
                // The first round makes the thread's buffer and the connection.
                before = round == 0 ? AllocationsOfThisThread() : before;
            }
            onServer = AllocationsOfThisThread() - before;
        });
    Client client("allocations");
    Letter request(80, 65536);
    request.arena.current = request.arena.end;
    Letter response(80, 65536);
    std::size_t before = 0;
    for (int round = 0; round < 20; ++round)
    {
        ASSERT_EQ(Call(client.transport, request, response), XoOk);
        before = round == 0 ? AllocationsOfThisThread() : before;
    }
    EXPECT_EQ(AllocationsOfThisThread() - before, 0U);
    server.join();
    EXPECT_EQ(onServer, 0U);
}

}  // namespace
}  // namespace platform::tests
