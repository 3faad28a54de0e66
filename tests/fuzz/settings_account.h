#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include <front_support.h>

namespace settings_manager::service {

/// Things by their numbers, in the order of their making: the numbers are random, inputs are not.
template <class T>
struct Ledger
{
    std::vector<std::pair<std::uint64_t, T>> entries;

    T* Find(std::uint64_t number)
    {
        for (auto& [known, thing] : entries)
        {
            if (known == number)
            {
                return &thing;
            }
        }
        return nullptr;
    }

    void Remove(std::uint64_t number)
    {
        std::erase_if(entries, [number](const auto& entry) { return entry.first == number; });
    }
};

/// What is known of a service by what it has answered, and what has to be true of it therefore.
/// `Require` ends the process where something is not.
class SettingsAccount
{
public:
    /// What a client has asked for, besides the request itself.
    struct Question
    {
        std::uint64_t client;
        std::string path;  ///< a separator behind every level
        Items unsent;      ///< of the tree that is being written, once a message has gone
    };

    explicit SettingsAccount(const Store& store);

    /// To be called with each answer to `question`.
    void Note(const Read&, const Read::Response&);
    void Note(const WriteRequest&, const WriteRequest::Response&);
    void Note(const ReadNext&, const ReadNext::Response&);
    void Note(const WriteNext&, const WriteNext::Response&);
    void Note(const Cancel&, const Cancel::Response&);
    void Note(const GetAttrib&, const GetAttrib::Response&);
    void Note(const SetAttrib&, const SetAttrib::Response&);
    void Note(const Delete&, const Delete::Response&);
    void Note(const RegCallback&, const RegCallback::Response&);
    void Note(const UnregCallback&, const UnregCallback::Response&);
    void Note(const Subscribe&, const Subscribe::Response&);
    void Note(const Unsubscribe&, const Unsubscribe::Response&);
    void Note(const Wait&, const Wait::Response&) {}
    void Note(const Done&, const Done::Response&) {}

    /// A write whose nodes could not be read is gone.
    void NoteUnreadable(std::uint64_t token);

    /// Compares the tree with what it was before.
    /// @param mayChange  whether a request was granted
    /// @param isAttribute  whether it was one that read-only is no obstacle to
    void NoteTree(bool mayChange, bool isAttribute);

    /// An update has come.
    void NoteUpdate(const Wait::Response& response, const std::string& path);

    /// The attribute of a setting has been switched to and fro.
    void NoteStorm(const std::string& path);

    void NoteEndOfTransfers(std::uint64_t client);
    void NoteEndOfContexts(std::uint64_t client);

    /// Nothing more comes: everybody knows of what concerns them.
    void RequireAllTold(std::uint64_t context);

    struct Transfer
    {
        std::uint64_t client;
        bool isRead;
        std::string path;
        std::uint64_t count;
        Items rest;  ///< what is still to come, or to be sent
    };

    struct Subscription
    {
        std::uint64_t context;
        std::string path;
        bool isOwed;  ///< an update
    };

    Question question;  ///< the last one
    Items nodes;        ///< that have come with its answer
    Ledger<Transfer> transfers;
    Ledger<std::uint64_t> contexts;  ///< their clients
    Ledger<Subscription> subscriptions;

private:
    [[nodiscard]] Transfer* Own(std::uint64_t token, bool isRead);
    void RequireBounded(std::uint64_t client) const;
    void RequireWritten(const std::string& path, std::uint64_t count) const;
    void RemoveContext(std::uint64_t context);

    const Store& m_store;
    Items m_before;
    Items m_tree;
};

}  // namespace settings_manager::service
