#include <algorithm>
#include <cstring>

#include <front_support.h>
#include <store/value_rules.h>

#include "fuzz_target.h"
#include "input.h"

namespace settings_manager::service {
namespace {

using fuzz::Input;
using fuzz::Require;
using tvo::service::Outcome;

bool AreEqual(const Node& left, const Node& right)
{
    const auto areEqual = [](const NodePtr& one, const NodePtr& other)
    {
        return AreEqual(*one, *other);
    };
    return left.level == right.level && left.value == right.value &&
           left.isReadOnly == right.isReadOnly &&
           std::ranges::equal(left.children, right.children, areEqual);
}

/// @param after  null where the node is gone
void RequireReadOnlyKept(const Node& before, const Node* after)
{
    Require(!before.isReadOnly || (after != nullptr && AreEqual(before, *after)),
            "what is read-only stays, with all that is below it");
    for (const NodePtr& child : before.children)
    {
        const NodePtr now = after == nullptr ? nullptr : ChildOf(*after, child->level);
        RequireReadOnlyKept(*child, now.get());
    }
}

/// The rules that hold in the whole tree whatever was written.
void RequireSound(const Node& node, const std::string& path)
{
    impl::Raw::Block value = node.value;
    CheckValue(value);
    Require(value == node.value, "a value is kept in its one form");
    Require(path.size() <= ipc::limits::Path, "a path fits into a message");
    Require(TextOf(ReadPath(path)) == path, "a path has one text");
    for (auto child = node.children.begin(); child != node.children.end(); ++child)
    {
        Require(MayHold(node, (*child)->level), "a child suits its parent");
        Require(child == node.children.begin() || (*std::prev(child))->level < (*child)->level,
                "children stand in order");
        std::string below = path;
        AppendLevel(below, (*child)->level);
        RequireSound(**child, below);
    }
}

/// A client of a service, whose requests are raw bytes but for the numbers of what it has begun.
class Conversation
{
public:
    explicit Conversation(Input& input) : m_input(input) {}

    void Run()
    {
        static constexpr void (Conversation::*Operations[])() = {
            &Conversation::Ask<Read>,
            &Conversation::Ask<WriteRequest>,
            &Conversation::Ask<ReadNext>,
            &Conversation::Ask<WriteNext>,
            &Conversation::Ask<Cancel>,
            &Conversation::Ask<GetAttrib>,
            &Conversation::Ask<SetAttrib>,
            &Conversation::Ask<Delete>,
            &Conversation::Ask<RegCallback>,
            &Conversation::Ask<UnregCallback>,
            &Conversation::Ask<Subscribe>,
            &Conversation::Ask<Unsubscribe>,
            &Conversation::Ask<Wait>,
            &Conversation::Ask<Done>,
        };
        for (int step = 0; step < 64 && !m_input.HasEnded(); ++step)
        {
            (this->*Operations[m_input.Byte() % std::size(Operations)])();
            m_loop.turnEnd();
            m_loop.answers.clear();
        }
        m_ism.End();
        m_reg.End();
    }

private:
    /// The numbers of a transfer, a context and a subscription, as far as the message has them.
    template <class Message, class Visit>
    static void ForEachNumber(Message& message, Visit visit)
    {
        if constexpr (requires { message.token; })
        {
            visit(message.token);
        }
        if constexpr (requires { message.cid; })
        {
            visit(message.cid);
        }
        if constexpr (requires { message.sid; })
        {
            visit(message.sid);
        }
    }

    template <class Request>
    void Ask()
    {
        Request request{};
        const std::string_view fields = m_input.Bytes(m_input.Byte());
        std::memcpy(&request.base + 1,
                    fields.data(),
                    std::min(fields.size(), sizeof(request) - sizeof(request.base)));
        // Small numbers stand for those that the service has given, in their order.
        ForEachNumber(request,
                      [this](std::uint64_t& number)
                      { number = number < m_numbers.size() ? m_numbers[number] : number; });
        std::string bytes(m_input.Bytes(m_input.Word()));
        auto* const start = reinterpret_cast<unsigned char*>(bytes.data());
        wz_arena arena{start, start + bytes.size(), start + bytes.size()};

        FakeConnection& line = LineOf<typename Request::Interface>();
        const std::uint32_t size = fields.empty() ? sizeof(wz_message) : sizeof(Request);
        auto response = line.Ask(request, &arena, Request::Mid, size);
        const bool isGranted = line.outcome == Outcome::Answer && response.result == 0;
        Require(size == sizeof(Request) || line.outcome == Outcome::Reject,
                "a message of another size is rejected");
        Require(line.outcome != Outcome::Defer || std::is_same_v<Request, Wait>,
                "only waits are parked");
        isGranted ? Note(line, response) : RequireEmpty(line, response);
        RequireRightful(isGranted, std::is_same_v<Request, SetAttrib>);
    }

    /// A refusal is as long as any response and says nothing else.
    template <class Response>
    static void RequireEmpty(FakeConnection& line, const Response& response)
    {
        Response empty{};
        empty.base = response.base;
        empty.result = response.result;
        Require(response.result <= 0 && std::memcmp(&empty, &response, sizeof(empty)) == 0 &&
                    line.received.Get()->current == line.received.Get()->start,
                "a refusal carries nothing");
    }

    /// Keeps the numbers that later requests are made of.
    template <class Response>
    void Note(FakeConnection& line, Response& response)
    {
        Require(response.base.size == sizeof(response), "a response is whole");
        if constexpr (requires { response.nodes; })
        {
            Items items;
            Require(ipc::ReadNodes(*line.received.Get(), response.nodes, items) && !items.empty(),
                    "nodes can be read");
        }
        ForEachNumber(response, [this](std::uint64_t number) { m_numbers.push_back(number); });
    }

    void RequireRightful(bool mayChange, bool isAttribute)
    {
        const Snapshot before = std::exchange(m_tree, m_store.At({}));
        RequireSound(*m_tree, "");
        Require(mayChange || AreEqual(*before, *m_tree), "who is refused has changed nothing");
        if (!isAttribute)
        {
            RequireReadOnlyKept(*before, m_tree.get());
        }
    }

    template <class Interface>
    FakeConnection& LineOf()
    {
        return std::is_same_v<Interface, vx_settings_manager_WzISM>      ? m_ism
               : std::is_same_v<Interface, vx_settings_manager_WzISMReg> ? m_reg
                                                                         : m_cbk;
    }

    Input& m_input;
    Store m_store{nullptr};
    testing::NiceMock<FakeServiceLoop>& m_loop = *new testing::NiceMock<FakeServiceLoop>;
    SettingsService m_service{std::unique_ptr<FakeServiceLoop>(&m_loop), m_store};
    FakeConnection m_ism{m_loop, "WzISM", 1};
    FakeConnection m_reg{m_loop, "WzISMReg", 1};
    FakeConnection m_cbk{m_loop, "WzISMCbk", 1};
    std::vector<std::uint64_t> m_numbers;  ///< of transfers, contexts and subscriptions
    Snapshot m_tree = m_store.At({});
};

void Run(std::string_view bytes)
{
    Input input(bytes);
    Conversation(input).Run();
}

/// One step; the number of the operation is its place in `Run`.
template <class Request>
std::string Seed(char operation, const Request& request, const std::string& arena = {})
{
    const std::string fields(reinterpret_cast<const char*>(&request.base + 1),
                             sizeof(request) - sizeof(request.base));
    return operation + (static_cast<char>(fields.size()) + fields) +
           static_cast<char>(arena.size() & 0xFFU) + static_cast<char>(arena.size() >> 8U) + arena;
}

std::string Writing(const std::string& path, std::uint8_t mode, const Items& items)
{
    ArenaBuffer arena(ipc::limits::WriteArena);
    WriteRequest request{.mode = mode, .count = items.size()};
    Require(tvo::ipc::arena::WriteText(*arena.Get(), path, 512, request.path) &&
                ipc::PackNodes(items, *arena.Get(), request.nodes).has_value(),
            "a seed can be packed");
    return Seed(1, request, std::string(arena.Get()->start, arena.Get()->current));
}

std::vector<std::string> Seeds()
{
    constexpr std::uint8_t Create = 1;
    constexpr std::uint8_t SetSetting = 6;
    const Reference whole{0, 1};
    const Setting map{Map{{"x", Text("1")}, {"locked", Text("2", true)}, {"list", {List(3)}}}};
    const std::string tree = Writing("m", Create, ItemsOf("m", map));
    const std::string many = Writing("n", Create, ItemsOf("n", {List(70)}));
    const std::string reading = Seed(0, Read{.path = whole, .mode = 0x16}, "m");
    const std::string deleting = Seed(7, Delete{.path = whole}, "m");
    const std::string registered = Seed(8, RegCallback{.name = whole}, "c");
    const std::string subscribed = registered + Seed(10, Subscribe{.cid = 0, .path = whole}, "m");
    const std::string waiting = Seed(12, Wait{.cid = 0});
    return {
        "",
        tree + tree + reading + deleting,
        tree + Writing("m", SetSetting, ItemsOf("m", Text("no map"))),
        Writing("m", Create, ItemsOf("m", Text("x"))) + Seed(5, GetAttrib{.path = whole}, "m") +
            Seed(6, SetAttrib{.path = whole, .attrib = 1}, "m") + deleting,
        Writing("m", Create, ItemsOf("m", Text("x"))) + deleting,
        many + Seed(3, WriteNext{.token = 0, .last = 1}) + Seed(4, Cancel{.token = 0}),
        many + Seed(2, ReadNext{.token = 0}),
        subscribed + tree + waiting + waiting + Seed(13, Done{.cid = 0, .sid = 1}),
        subscribed + waiting + waiting + tree + Seed(11, Unsubscribe{.cid = 0, .sid = 1}),
        subscribed + waiting + Seed(9, UnregCallback{.cid = 0}) + tree,
        Seed(0, Read{.path = {0xFFFFFFF0U, 0x20}, .mode = 0x16}, "m"),
    };
}

}  // namespace
}  // namespace settings_manager::service

namespace fuzz {

const Target SettingsRequests{"settings_requests",
                              &settings_manager::service::Run,
                              &settings_manager::service::Seeds};

}  // namespace fuzz
