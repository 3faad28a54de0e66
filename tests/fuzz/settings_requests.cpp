#include <cstring>
#include <map>

#include <front_support.h>
#include <store/value_rules.h>

#include "fuzz_target.h"
#include "input.h"

namespace settings_manager::service {
namespace {

using fuzz::Input;
using fuzz::Require;
using tvo::service::Outcome;

/// The blocks of every node by its path.
using Tree = std::map<std::string, std::pair<impl::Raw::Block, impl::Raw::Block>>;

Tree TreeOf(const Store& store)
{
    Items items;
    SnapshotReader reader(store.At({}), "");
    const std::uint64_t count = reader.Count();
    reader.Read(count + 1, items);
    Tree tree;
    for (const impl::RawItem& item : items)
    {
        tree[item.path] = {item.value, item.attrib};
    }
    Require(tree.size() == count && reader.IsAtEnd(), "nodes are counted");
    return tree;
}

/// Whether what is at and below a path is in both trees the same.
bool IsSameBelow(const std::string& path, const Tree& left, const Tree& right)
{
    auto one = left.lower_bound(path);
    auto other = right.lower_bound(path);
    for (; one != left.end() && one->first.starts_with(path); ++one, ++other)
    {
        if (other == right.end() || *one != *other)
        {
            return false;
        }
    }
    return other == right.end() || !other->first.starts_with(path);
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
    template <class Request>
    void Ask()
    {
        Request request{};
        const std::string_view fields = m_input.Bytes(m_input.Byte());
        std::memcpy(&request.base + 1,
                    fields.data(),
                    std::min(fields.size(), sizeof(request) - sizeof(request.base)));
        if constexpr (requires { request.token; })
        {
            request.token = Known(request.token);
        }
        if constexpr (requires { request.cid; })
        {
            request.cid = Known(request.cid);
        }
        if constexpr (requires { request.sid; })
        {
            request.sid = Known(request.sid);
        }
        std::string bytes(m_input.Bytes(m_input.Word()));
        auto* const start = reinterpret_cast<unsigned char*>(bytes.data());
        wz_arena arena{start, start + bytes.size(), start + bytes.size()};

        FakeConnection& line = LineOf<typename Request::Interface>();
        const std::uint32_t size = fields.empty() ? sizeof(wz_message) : sizeof(Request);
        const auto response = line.Ask(request, &arena, Request::Mid, size);
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
    void Note(FakeConnection& line, const Response& response)
    {
        Require(response.base.size == sizeof(response), "a response is whole");
        if constexpr (requires { response.nodes; })
        {
            Items items;
            Require(ipc::ReadNodes(*line.received.Get(), response.nodes, items) && !items.empty(),
                    "nodes can be read");
        }
        if constexpr (requires { response.token; })
        {
            m_numbers.push_back(response.token);
        }
        if constexpr (requires { response.cid; })
        {
            m_numbers.push_back(response.cid);
        }
        if constexpr (requires { response.sid; })
        {
            m_numbers.push_back(response.sid);
        }
    }

    void RequireRightful(bool mayChange, bool isAttribute)
    {
        const Tree before = std::exchange(m_tree, TreeOf(m_store));
        RequireSound(*m_store.At({}), "");
        Require(mayChange || before == m_tree, "who is refused has changed nothing");
        for (const auto& [path, blocks] : before)
        {
            Require(isAttribute || !impl::Raw::ToAttributes(blocks.second).isReadOnly ||
                        IsSameBelow(path, before, m_tree),
                    "what is read-only stays, with all that is below it");
        }
    }

    template <class Interface>
    FakeConnection& LineOf()
    {
        return std::is_same_v<Interface, vx_settings_manager_WzISM>      ? m_ism
               : std::is_same_v<Interface, vx_settings_manager_WzISMReg> ? m_reg
                                                                         : m_cbk;
    }

    /// Small numbers stand for those that the service has given, in their order.
    [[nodiscard]] std::uint64_t Known(std::uint64_t number) const
    {
        return number < m_numbers.size() ? m_numbers[number] : number;
    }

    Input& m_input;
    Store m_store{nullptr};
    testing::NiceMock<FakeServiceLoop>& m_loop = *new testing::NiceMock<FakeServiceLoop>;
    SettingsService m_service{std::unique_ptr<FakeServiceLoop>(&m_loop), m_store};
    FakeConnection m_ism{m_loop, "WzISM", 1};
    FakeConnection m_reg{m_loop, "WzISMReg", 1};
    FakeConnection m_cbk{m_loop, "WzISMCbk", 1};
    std::vector<std::uint64_t> m_numbers;  ///< of transfers, contexts and subscriptions
    Tree m_tree = TreeOf(m_store);
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
        tree + Seed(5, GetAttrib{.path = whole}, "m") +
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
