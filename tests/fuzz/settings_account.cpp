#include "settings_account.h"

#include <algorithm>

#include <store/value_rules.h>

#include "fuzz_target.h"

namespace settings_manager::service {
namespace {

using fuzz::Require;
using ItemSpan = std::span<const impl::RawItem>;

bool AreEqual(ItemSpan left, ItemSpan right)
{
    return std::equal(left.begin(),
                      left.end(),
                      right.begin(),
                      right.end(),
                      [](const impl::RawItem& one, const impl::RawItem& other) {
                          return one.path == other.path && one.value == other.value &&
                                 one.attrib == other.attrib;
                      });
}

/// The nodes at and below a path.
ItemSpan Below(const Items& items, const std::string& path)
{
    const auto isInside = [&](const impl::RawItem& item)
    {
        return item.path.starts_with(path);
    };
    const auto begin = std::find_if(items.begin(), items.end(), isInside);
    return {begin, std::find_if_not(begin, items.end(), isInside)};
}

bool IsReadOnly(const impl::RawItem& item)
{
    return impl::Raw::ToAttributes(item.attrib).isReadOnly;
}

bool IsReadOnly(const Items& items, const std::string& path)
{
    const ItemSpan tree = Below(items, path);
    Require(!tree.empty(), "only what is there has an attribute");
    return IsReadOnly(tree.front());
}

Items AllOf(const Snapshot& root)
{
    Items items;
    SnapshotReader reader(root, "");
    const std::uint64_t count = reader.Count();
    reader.Read(count + 1, items);
    Require(items.size() == count && reader.IsAtEnd(), "nodes are counted");
    return items;
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

/// Takes what has arrived off what is to come.
void TakeArrived(Items& rest, const Items& nodes)
{
    Require(!nodes.empty() && nodes.size() <= rest.size() &&
                AreEqual(nodes, ItemSpan(rest).first(nodes.size())),
            "a reader goes on with the tree that it began with");
    rest.erase(rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(nodes.size()));
}

}  // namespace

SettingsAccount::SettingsAccount(const Store& store) : m_store(store), m_tree(AllOf(store.At({})))
{}

void SettingsAccount::Note(const Read&, const Read::Response& response)
{
    if (response.result != 0)
    {
        return;
    }
    const ItemSpan tree = Below(m_tree, question.path);
    Items rest(tree.begin(), tree.end());
    Require(response.count == rest.size(), "a reader knows how many nodes come");
    TakeArrived(rest, nodes);
    Require((response.token == 0) == rest.empty(), "a token is for what is left");
    if (!rest.empty())
    {
        transfers.entries.push_back(
            {response.token, {question.client, true, question.path, response.count, rest}});
    }
    RequireBounded(question.client);
}

void SettingsAccount::Note(const ReadNext& request, const ReadNext::Response& response)
{
    Transfer* const transfer = Own(request.token, true);
    Require((response.result == 0) == (transfer != nullptr), "a token belongs to its reader");
    if (transfer != nullptr)
    {
        TakeArrived(transfer->rest, nodes);
        Require((response.last != 0) == transfer->rest.empty(), "the last message says so");
        if (response.last != 0)
        {
            transfers.Remove(request.token);
        }
    }
}

void SettingsAccount::Note(const WriteRequest& request, const WriteRequest::Response& response)
{
    if (response.result != 0)
    {
        return;
    }
    if (response.token != 0)
    {
        Require(request.count <= StagedWrite::MostNodes, "a write has its limit");
        transfers.entries.push_back(
            {response.token,
             {question.client, false, question.path, request.count, question.unsent}});
        RequireBounded(question.client);
        return;
    }
    const bool isCreated = request.mode == vx_settings_manager_WzISM_mode_create;
    Require(isCreated == Below(m_before, question.path).empty(), "only what is there can be set");
    RequireWritten(question.path, request.count);
}

void SettingsAccount::Note(const WriteNext& request, const WriteNext::Response& response)
{
    Transfer* const transfer = Own(request.token, false);
    Require(transfer != nullptr || response.result == codes::NotFound,
            "a token belongs to its writer");
    if (transfer == nullptr)
    {
        return;
    }
    if (response.result == 0 && request.last == 0)
    {
        transfer->rest = question.unsent;
        return;
    }
    if (response.result == 0)
    {
        RequireWritten(transfer->path, transfer->count);
    }
    transfers.Remove(request.token);
}

void SettingsAccount::Note(const Cancel& request, const Cancel::Response& response)
{
    const Transfer* const transfer = transfers.Find(request.token);
    const bool isOwn = transfer != nullptr && transfer->client == question.client;
    Require((response.result == 0) == isOwn, "who has begun a transfer can cancel it");
    if (isOwn)
    {
        transfers.Remove(request.token);
    }
}

void SettingsAccount::Note(const GetAttrib&, const GetAttrib::Response& response)
{
    Require(response.result != 0 || (response.attrib != 0) == IsReadOnly(m_tree, question.path),
            "an attribute is that of the tree");
}

void SettingsAccount::Note(const SetAttrib& request, const SetAttrib::Response& response)
{
    Require(response.result != 0 || IsReadOnly(m_tree, question.path) == (request.attrib != 0),
            "an attribute is set");
}

void SettingsAccount::Note(const Delete&, const Delete::Response& response)
{
    Require(response.result != 0 || Below(m_tree, question.path).empty(),
            "what is deleted is gone");
}

void SettingsAccount::Note(const RegCallback&, const RegCallback::Response& response)
{
    if (response.result == 0)
    {
        Require(response.cid != 0 && contexts.Find(response.cid) == nullptr, "a context is new");
        contexts.entries.emplace_back(response.cid, question.client);
        Require(contexts.entries.size() <= ContextTable::MostContexts, "contexts are bounded");
    }
}

void SettingsAccount::Note(const UnregCallback& request, const UnregCallback::Response& response)
{
    const std::uint64_t* const owner = contexts.Find(request.cid);
    const bool isOwn = owner != nullptr && *owner == question.client;
    Require((response.result == 0) == isOwn, "a context ends by its owner");
    if (isOwn)
    {
        RemoveContext(request.cid);
    }
}

void SettingsAccount::Note(const Subscribe& request, const Subscribe::Response& response)
{
    if (response.result == 0)
    {
        const std::uint64_t* const owner = contexts.Find(request.cid);
        Require(owner != nullptr && *owner == question.client, "a context is its owner's");
        Require(response.sid != 0 && subscriptions.Find(response.sid) == nullptr,
                "a subscription is new");
        subscriptions.entries.push_back({response.sid, {request.cid, question.path, false}});
    }
}

void SettingsAccount::Note(const Unsubscribe& request, const Unsubscribe::Response& response)
{
    const std::uint64_t* const owner = contexts.Find(request.cid);
    const Subscription* const subscription = subscriptions.Find(request.sid);
    const bool isOwn = owner != nullptr && *owner == question.client && subscription != nullptr &&
                       subscription->context == request.cid;
    Require((response.result == 0) == isOwn, "a subscription ends by its owner");
    if (isOwn)
    {
        subscriptions.Remove(request.sid);
    }
}

void SettingsAccount::NoteUnreadable(std::uint64_t token)
{
    if (Own(token, false) != nullptr)
    {
        transfers.Remove(token);
    }
}

void SettingsAccount::NoteTree(bool mayChange, bool isAttribute)
{
    m_before = std::exchange(m_tree, AllOf(m_store.At({})));
    RequireSound(*m_store.At({}), "");
    Require(mayChange || AreEqual(m_before, m_tree), "who is refused has changed nothing");
    for (const impl::RawItem& item : m_before)
    {
        Require(isAttribute || !IsReadOnly(item) ||
                    AreEqual(Below(m_before, item.path), Below(m_tree, item.path)),
                "what is read-only stays, with all that is below it");
    }
    for (auto& [sid, subscription] : subscriptions.entries)
    {
        subscription.isOwed |=
            !AreEqual(Below(m_before, subscription.path), Below(m_tree, subscription.path));
    }
}

void SettingsAccount::NoteUpdate(const Wait::Response& response, const std::string& path)
{
    Subscription* const subscription = subscriptions.Find(response.sid);
    Require(subscription != nullptr && contexts.Find(subscription->context) != nullptr,
            "only who has subscribed is told");
    Require(path.starts_with(subscription->path), "an update is about what was subscribed");
    Require(response.update > 0 && response.update < 16, "an update says what has happened");
    subscription->isOwed = false;
}

void SettingsAccount::NoteStorm(const std::string& path)
{
    for (auto& [sid, subscription] : subscriptions.entries)
    {
        subscription.isOwed |= path.starts_with(subscription.path);
    }
}

void SettingsAccount::NoteEndOfTransfers(std::uint64_t client)
{
    std::erase_if(transfers.entries,
                  [client](const auto& entry) { return entry.second.client == client; });
}

void SettingsAccount::NoteEndOfContexts(std::uint64_t client)
{
    for (const auto& [context, owner] : Ledger(contexts).entries)
    {
        if (owner == client)
        {
            RemoveContext(context);
        }
    }
}

void SettingsAccount::RequireAllTold(std::uint64_t context)
{
    for (const auto& [sid, subscription] : subscriptions.entries)
    {
        Require(subscription.context != context || !subscription.isOwed,
                "who has subscribed is told of every change");
    }
}

SettingsAccount::Transfer* SettingsAccount::Own(std::uint64_t token, bool isRead)
{
    Transfer* const transfer = transfers.Find(token);
    const bool isOwn =
        transfer != nullptr && transfer->client == question.client && transfer->isRead == isRead;
    return isOwn ? transfer : nullptr;
}

void SettingsAccount::RequireBounded(std::uint64_t client) const
{
    const auto count =
        std::count_if(transfers.entries.begin(),
                      transfers.entries.end(),
                      [client](const auto& entry) { return entry.second.client == client; });
    Require(static_cast<std::size_t>(count) <= TransferTable::MostOfConnection,
            "transfers are bounded");
}

void SettingsAccount::RequireWritten(const std::string& path, std::uint64_t count) const
{
    Require(Below(m_tree, path).size() == count, "a tree is written as a whole");
}

void SettingsAccount::RemoveContext(std::uint64_t context)
{
    contexts.Remove(context);
    std::erase_if(subscriptions.entries,
                  [context](const auto& entry) { return entry.second.context == context; });
}

}  // namespace settings_manager::service
