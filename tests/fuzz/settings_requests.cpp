#include <algorithm>
#include <cstring>

#include <component/nvl/path_text.h>
#include <component/settings_manager/id_specification.h>

#include "fuzz_target.h"
#include "setting_items.h"
#include "settings_account.h"

namespace settings_manager::service {
namespace {

using fuzz::Input;
using fuzz::Require;

/// What of a request is not the usual; the low four bits choose the operation.
constexpr unsigned FromOtherClient = 16;
constexpr unsigned LastAnswerLost = 32;
constexpr unsigned WrongFields = 64;    // tokens, numbers and modes
constexpr unsigned WrongMessage = 128;  // sizes and references

constexpr std::uint8_t AnyPath = 0xFF;

/// The text in full of a path that may be bad; then there is none.
std::string FullText(std::string_view text)
{
    return TextOf(nvl::FromString(text, meta::GetIdSpecification()).first);
}

/// Two clients of one service; each has a connection to each interface.
class Conversation
{
public:
    explicit Conversation(Input& input) : m_input(input) {}

    void Run()
    {
        for (int step = 0; step < 64 && !m_input.HasEnded(); ++step)
        {
            Step(m_input.Byte());
            m_loop.turnEnd();
            TakeLateAnswers();
        }
        for (const auto& [context, client] : m_account.contexts.entries)
        {
            FetchAll(context);
        }
    }

private:
    void Step(std::uint8_t action)
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
            &Conversation::End,
            &Conversation::Storm,
        };
        m_action = action;
        m_account.question = {Has(FromOtherClient) ? 2U : 1U, {}, {}};
        m_ism.id = m_reg.id = m_cbk.id = m_account.question.client;
        m_isReadable = true;
        m_arena.Reset();
        (this->*Operations[action % std::size(Operations)])();
    }

    [[nodiscard]] bool Has(unsigned oddity) const
    {
        return (m_action & oddity) != 0;
    }

    template <class Request>
    void Ask()
    {
        Request request{};
        Fill(request);
        FakeConnection& line = LineOf<typename Request::Interface>();
        line.acknowledged = Has(LastAnswerLost) ? 0 : line.acknowledged;
        const bool isWhole = !Has(WrongMessage) || m_input.Byte() % 2 == 0;
        const std::uint32_t size = isWhole ? sizeof(Request) : m_input.Byte();
        const auto response = line.Ask(request, m_arena.Get(), Request::Mid, size);
        const bool isRejected = line.outcome == Outcome::Reject;
        if (size != sizeof(Request))
        {
            Require(isRejected, "a message of another size is rejected");
        }
        Require(!isRejected || !m_isReadable || Has(WrongMessage), "what makes sense is answered");
        RequireWhole<Request>(line, response);
        m_account.NoteTree(line.outcome == Outcome::Answer && response.result == 0,
                           std::is_same_v<Request, SetAttrib>);
        Note(line, request, response, size == sizeof(Request));
    }

    /// A refusal is as long as any response and says nothing else.
    template <class Request>
    static void RequireWhole(FakeConnection& line, const typename Request::Response& response)
    {
        const bool isAnswer = line.outcome == Outcome::Answer;
        Require(isAnswer || line.outcome == Outcome::Reject || std::is_same_v<Request, Wait>,
                "only waits are parked");
        Require(!isAnswer || response.base.size == sizeof(response), "a response is whole");
        Require(response.result <= 0, "a result is a failure or none");
        if (!isAnswer || response.result != 0)
        {
            typename Request::Response empty{};
            empty.base = response.base;
            empty.result = response.result;
            Require(std::memcmp(&empty, &response, sizeof(empty)) == 0 &&
                        line.received.Get()->current == line.received.Get()->start,
                    "a refusal carries nothing");
        }
    }

    template <class Request>
    void Note(FakeConnection& line,
              const Request& request,
              const typename Request::Response& response,
              bool isWhole)
    {
        if (line.outcome == Outcome::Defer)
        {
            ++m_parked;
        }
        else if (line.outcome == Outcome::Answer)
        {
            m_account.nodes.clear();
            if constexpr (requires { response.nodes; })
            {
                Require(ipc::ReadNodes(*line.received.Get(), response.nodes, m_account.nodes),
                        "nodes can be read");
            }
            if (std::is_same_v<Request, Wait> && response.result == 0)
            {
                TakeUpdate(line, response);
            }
            m_account.Note(request, response);
        }
        else if constexpr (std::is_same_v<Request, WriteNext>)
        {
            if (isWhole)
            {
                m_account.NoteUnreadable(request.token);
            }
        }
    }

    template <class Response>
    void TakeUpdate(FakeConnection& line, const Response& response)
    {
        if constexpr (std::is_same_v<Response, Wait::Response>)
        {
            const auto path = tvo::ipc::arena::ReadText(*line.received.Get(), response.path);
            Require(path.has_value(), "an update has a path");
            m_account.NoteUpdate(response, std::string(*path));
        }
    }

    void TakeLateAnswers()
    {
        for (const auto& [response, arena] : std::exchange(m_loop.answers, {}))
        {
            Require(m_parked-- > 0, "only parked waits are answered late");
            Require(response.base.size == sizeof(response), "a late response is whole");
            if (response.result == 0)
            {
                m_account.NoteUpdate(response, arena.substr(0, response.path.size));
            }
            Require(response.result == 0 || response.result == codes::OperationCancelled,
                    "a wait ends with an update or another wait");
        }
    }

    /// Takes all updates that a context has.
    void FetchAll(std::uint64_t context)
    {
        const std::size_t most =
            EventQueue::Bound + m_account.subscriptions.entries.size() + EventQueue::MostDeliveries;
        for (std::size_t taken = 0;; ++taken)
        {
            const auto response = m_cbk.Ask(Wait{.cid = context});
            if (m_cbk.outcome == Outcome::Defer)
            {
                break;
            }
            Require(response.result == 0 && taken < most, "queues are bounded");
            TakeUpdate(m_cbk, response);
            Require(m_cbk.Ask(Done{.cid = context, .sid = response.sid}).result == 0,
                    "who has an update can be done with it");
        }
        m_account.RequireAllTold(context);
    }

    void End()
    {
        if (m_input.Byte() % 2 == 0)
        {
            m_ism.End();
            m_account.NoteEndOfTransfers(m_account.question.client);
        }
        else
        {
            m_reg.End();
            m_account.NoteEndOfContexts(m_account.question.client);
        }
    }

    /// Some of these are more changes than a queue takes as they are.
    void Storm()
    {
        constexpr int MostStorms = 4;
        constexpr unsigned Changes = 256;
        const std::string path = TakePath();
        m_action = 0;
        if (++m_storms > MostStorms)
        {
            return;
        }
        SetAttrib request{};
        request.path = Store(path);
        for (unsigned i = 1; i <= Changes; ++i)
        {
            request.attrib = i % 2;
            if (m_ism.Ask(request, m_arena.Get()).result != 0 || m_ism.outcome != Outcome::Answer)
            {
                return;
            }
        }
        m_account.NoteTree(true, true);
        m_account.NoteStorm(FullText(path));
    }

    template <class Interface>
    FakeConnection& LineOf()
    {
        return std::is_same_v<Interface, vx_settings_manager_WzISM>      ? m_ism
               : std::is_same_v<Interface, vx_settings_manager_WzISMReg> ? m_reg
                                                                         : m_cbk;
    }

    /// Fills the fields that a request has.
    template <class Request>
    void Fill(Request& request)
    {
        if constexpr (requires { request.path; })
        {
            const std::string path = TakePath();
            m_isReadable = path.size() <= ipc::limits::Path;
            m_account.question.path = FullText(path);  // the root of the nodes
            request.path = Store(path);
        }
        if constexpr (requires { request.name; })
        {
            request.name = Store(TakeText(m_input));
        }
        if constexpr (requires { request.token; })
        {
            request.token = Known(m_account.transfers);
        }
        if constexpr (requires { request.cid; })
        {
            request.cid = Known(m_account.contexts);
        }
        if constexpr (requires { request.sid; })
        {
            request.sid = Known(m_account.subscriptions);
        }
        if constexpr (requires { request.attrib; })
        {
            request.attrib = m_input.Byte();
        }
        if constexpr (requires { request.mode; })
        {
            constexpr std::uint8_t Modes[] = {1, 2, 6, 0x16};
            const std::uint8_t mode = std::is_same_v<Request, Read> ? 3 : m_input.Byte() % 3;
            request.mode = Has(WrongFields) ? m_input.Byte() : Modes[mode];
        }
        if constexpr (requires { request.nodes; })
        {
            FillNodes(request);
        }
        if constexpr (requires { request.path; })
        {
            const auto sent = tvo::ipc::arena::ReadText(*m_arena.Get(), request.path);
            m_account.question.path = FullText(sent.value_or(""));
        }
    }

    /// As much as goes into one message, of a new tree or of what is left of one.
    template <class Request>
    void FillNodes(Request& request)
    {
        Items& items = m_account.question.unsent;
        if constexpr (requires { request.count; })
        {
            items = fuzz::TakeItems(m_input, m_account.question.path);
            request.count = items.size() + (Has(WrongFields) ? m_input.Word() * 32UL : 0);
        }
        else if (const auto* transfer = m_account.transfers.Find(request.token))
        {
            items = transfer->rest;
        }
        const auto packed = ipc::PackNodes(items, *m_arena.Get(), request.nodes);
        m_isReadable &= packed.has_value();
        items.erase(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(packed.value_or(0)));
        if constexpr (requires { request.last; })
        {
            request.last = items.empty() != Has(WrongFields) ? 1 : 0;
        }
        request.nodes = Tampered(request.nodes);
    }

    /// Mostly one of few paths, so that writes meet each other.
    std::string TakePath()
    {
        const std::uint8_t levels = m_input.Byte();
        if (levels == AnyPath)
        {
            return std::string(fuzz::TakeText(m_input));
        }
        std::string path;
        for (int i = levels % 4; i > 0; --i)
        {
            path += fuzz::TakeLevel(m_input);
        }
        return path;
    }

    Reference Store(std::string_view text)
    {
        Reference reference{};
        Require(tvo::ipc::arena::WriteText(*m_arena.Get(), text, 4096, reference), "a text fits");
        return Tampered(reference);
    }

    Reference Tampered(Reference reference)
    {
        if (Has(WrongMessage))
        {
            reference.offset += m_input.Byte();
            reference.size += m_input.Byte();
        }
        return reference;
    }

    /// The number of something that there is, or any.
    template <class T>
    std::uint64_t Known(const Ledger<T>& ledger)
    {
        const std::uint8_t choice = m_input.Byte();
        const bool isAny = ledger.entries.empty() || Has(WrongFields);
        return isAny ? choice : ledger.entries[choice % ledger.entries.size()].first;
    }

    Input& m_input;
    service::Store m_store{nullptr};
    testing::NiceMock<FakeServiceLoop>& m_loop = *new testing::NiceMock<FakeServiceLoop>;
    SettingsService m_service{std::unique_ptr<FakeServiceLoop>(&m_loop), m_store};
    FakeConnection m_ism{m_loop, "WzISM", 1};
    FakeConnection m_reg{m_loop, "WzISMReg", 1};
    FakeConnection m_cbk{m_loop, "WzISMCbk", 1};
    SettingsAccount m_account{m_store};
    ArenaBuffer m_arena{ipc::limits::WriteArena};
    std::uint8_t m_action = 0;
    bool m_isReadable = true;  ///< the message as it is meant
    int m_parked = 0;
    int m_storms = 0;
};

void Run(std::string_view bytes)
{
    Input input(bytes);
    Conversation(input).Run();
}

/// The numbers of the operations, as `Step` lists them.
enum Operation : unsigned
{
    DoRead,
    DoWrite,
    DoReadNext,
    DoWriteNext,
    DoCancel,
    DoGetAttrib,
    DoSetAttrib,
    DoDelete,
    DoRegister,
    DoUnregister,
    DoSubscribe,
    DoUnsubscribe,
    DoWait,
    DoDone,
    DoEnd,
    DoStorm,
};

std::string Bytes(std::initializer_list<unsigned> bytes)
{
    return {bytes.begin(), bytes.end()};
}

std::string Repeated(const std::string& text, int times)
{
    std::string all;
    while (times-- > 0)
    {
        all += text;
    }
    return all;
}

/// Modes: 0 creates, 1 sets the value, 2 the setting.
std::string Writing(const std::string& path,
                    unsigned mode,
                    const std::string& items,
                    unsigned odd = 0)
{
    return Bytes({DoWrite | odd}) + path + Bytes({mode}) + items;
}

std::vector<std::string> Seeds()
{
    namespace kind = nvl::kind;
    using fuzz::SeedItem;
    const std::string root = Bytes({0});
    const std::string map = Bytes({1, 'e'});  // the path of a setting, and one below it
    const std::string text = Bytes({2, 'e', 'e'});
    const std::string list = Bytes({1, 3});
    const std::string aMap = fuzz::SeedItems({SeedItem(0, 0, kind::Map)});
    const std::string aText = fuzz::SeedItems({SeedItem(0, 0, kind::String, "x")});
    const std::string aLock =
        fuzz::SeedItems({SeedItem(fuzz::ItemIsReadOnly, 0, kind::String, "held")});
    const std::string aLockedMap = fuzz::SeedItems({SeedItem(fuzz::ItemIsReadOnly, 0, kind::Map)});
    const std::string tree =
        fuzz::SeedItems({SeedItem(0, 0, kind::Map),
                         SeedItem(0, 'e', kind::String, "y"),
                         SeedItem(1 | fuzz::ItemIsReadOnly, 3, kind::UInt8, "7")});
    const std::string twoTexts = Writing(map, 0, aMap) + Writing(text, 0, aText);
    const std::string subscribed = Bytes({DoRegister, 0, DoSubscribe}) + map + Bytes({0});
    const std::string staged = Writing(list, 0, fuzz::SeedList(200));
    const std::string read = Bytes({DoRead}) + list;
    const std::string next = Bytes({DoWriteNext, 0});
    const std::string more = Bytes({DoReadNext, 0});
    const std::string fetched = Bytes({DoWait, 0, DoDone, 0, 0});
    const auto at = [](unsigned operation, const std::string& path)
    {
        return Bytes({operation}) + path;
    };
    return {
        "",
        twoTexts + at(DoRead, root) + at(DoDelete, text) + at(DoRead, map) + at(DoDelete, root),
        twoTexts + Writing(text, 1, aLock) + Writing(text, 2, aLock) + Writing(text, 1, aText) +
            at(DoGetAttrib, text) + at(DoSetAttrib, text) + Bytes({0}) + at(DoDelete, map),
        Writing(map, 0, aLockedMap) + Writing(text, 0, aText) + at(DoDelete, map),
        Writing(map, 0, tree) + Writing(map, 2, tree) + Writing(map, 2, aMap) + at(DoDelete, map),
        staged + next + next + next + read + more + more + more + more,
        staged + next + next + next + read + at(DoDelete, list) + more + Bytes({DoEnd, 0}) + more,
        staged + next + next + next + read + at(DoDelete, Bytes({2, 3, 0})) + more + more + more,
        staged + next + Bytes({DoWriteNext | FromOtherClient, 0, DoCancel, 0}) + next,
        staged + Bytes({DoWriteNext | WrongFields, 0}) + next,
        staged + Bytes({DoWriteNext | WrongMessage, 0, 2, 0, 0}) + next,
        Repeated(staged, 17) + next,
        Writing(map, 0, aText, WrongFields) + Bytes({9, 9}) + next,
        subscribed + twoTexts + fetched + fetched + fetched,
        twoTexts + Bytes({DoRegister, 0, DoSubscribe}) + text + Bytes({0}) + Writing(map, 2, tree),
        subscribed + Bytes({DoWait, 0}) + twoTexts + Bytes({DoDone, 0, 0, DoWait, 0}),
        subscribed + Bytes({DoWait, 0, DoWait | FromOtherClient, 0}) + twoTexts,
        subscribed + twoTexts + Repeated(Bytes({DoWait, 0}), 5),
        subscribed + twoTexts + Repeated(Bytes({DoWait | LastAnswerLost, 0}), 5),
        subscribed + twoTexts + Bytes({DoWait, 0, DoUnsubscribe, 0, 0, DoDone, 0, 0}),
        subscribed + twoTexts + Bytes({DoUnregister, 0, DoWait, 0, DoEnd, 1}),
        subscribed + Bytes({DoUnregister | FromOtherClient, 0, DoEnd, 1, DoWait, 0}) + twoTexts,
        Repeated(subscribed, 8) + twoTexts + Repeated(at(DoStorm, text), 4) + fetched,
        at(DoRead | WrongMessage, map) + Bytes({200, 200, 0, 1, 24}),
        at(DoRead, Bytes({AnyPath, 4}) + "a%/b") + at(DoDelete, Bytes({AnyPath, 3}) + "007"),
        Writing(Bytes({3, 252, 252, 252}), 0, aMap),
    };
}

}  // namespace
}  // namespace settings_manager::service

namespace fuzz {

const Target SettingsRequests{"settings_requests",
                              &settings_manager::service::Run,
                              &settings_manager::service::Seeds};

}  // namespace fuzz
