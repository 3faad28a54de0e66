#include <cstdlib>
#include <map>
#include <stdexcept>

#include <dconf.h>

#include "bus_daemon.h"
#include "notifications.h"
#include "server_line.h"
#include "settings_rows.h"
#include "settings_tree.h"

namespace tvo::bench {
namespace {

constexpr char Folder[] = "/bench/";
constexpr char TextKey[] = "/bench/text";

void Check(bool isDone, const char* what)
{
    if (!isDone)
    {
        throw std::runtime_error(what + std::string(" failed"));
    }
}

struct Unref
{
    void operator()(DConfClient* client) const
    {
        g_object_unref(client);
    }

    void operator()(DConfChangeset* changes) const
    {
        dconf_changeset_unref(changes);
    }

    void operator()(GVariant* value) const
    {
        g_variant_unref(value);
    }

    void operator()(char** texts) const
    {
        g_strfreev(texts);
    }
};

using Client = std::unique_ptr<DConfClient, Unref>;
using Changes = std::unique_ptr<DConfChangeset, Unref>;
using Value = std::unique_ptr<GVariant, Unref>;
using Names = std::unique_ptr<char*, Unref>;

/// A session in which dconf starts from nothing. To be made before anything of GLib is used.
class Session
{
public:
    explicit Session(std::string folder) : m_daemon(Enter(std::move(folder)))
    {
        ::setenv("DBUS_SESSION_BUS_ADDRESS", m_daemon.Address().c_str(), 1);
    }

private:
    static std::string Enter(std::string folder)
    {
        ::setenv("XDG_CONFIG_HOME", (folder + "/config").c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
        ::unsetenv("DCONF_PROFILE");
        return folder;
    }

    const BusDaemon m_daemon;
};

class TextWriter
{
public:
    void Write()
    {
        m_isSecond = !m_isSecond;
        Check(dconf_client_write_sync(m_client.get(),
                                      TextKey,
                                      g_variant_new_string(m_isSecond ? "de-DE" : "en-US"),
                                      nullptr,
                                      nullptr,
                                      nullptr) != FALSE,
              "writing");
    }

private:
    const Client m_client{dconf_client_new()};
    bool m_isSecond = false;
};

GVariant* NewValue(std::size_t group, std::size_t leaf, int round)
{
    return IsText(leaf) ? g_variant_new_string(TextOf(group, leaf, round).c_str())
                        : g_variant_new_int64(NumberOf(group, leaf, round));
}

Changes MakeTree(int round)
{
    Changes changes(dconf_changeset_new());
    for (std::size_t group = 0; group < TreeGroups; ++group)
    {
        for (std::size_t leaf = 0; leaf < GroupLeaves; ++leaf)
        {
            const std::string key = Folder + GroupName(group) + '/' + LeafName(leaf);
            dconf_changeset_set(changes.get(), key.c_str(), NewValue(group, leaf, round));
        }
    }
    return changes;
}

class WriteTree
{
public:
    void operator()()
    {
        m_isSecond = !m_isSecond;
        Check(dconf_client_change_sync(m_client.get(),
                                       (m_isSecond ? m_second : m_first).get(),
                                       nullptr,
                                       nullptr,
                                       nullptr) != FALSE,
              "writing");
    }

    DConfClient* Get() const
    {
        return m_client.get();
    }

private:
    const Client m_client{dconf_client_new()};
    const Changes m_first = MakeTree(1);
    const Changes m_second = MakeTree(2);
    bool m_isSecond = false;
};

class ReadTree
{
public:
    ReadTree()
    {
        m_tree();
    }

    void operator()()
    {
        std::size_t values = 0;
        ReadFolder(Folder, values);
        Check(values == TreeGroups * GroupLeaves, "reading the tree");
    }

private:
    void ReadFolder(const std::string& folder, std::size_t& values) const
    {
        const Names names(dconf_client_list(m_tree.Get(), folder.c_str(), nullptr));
        for (char** name = names.get(); *name != nullptr; ++name)
        {
            const std::string path = folder + *name;
            if (path.back() == '/')
            {
                ReadFolder(path, values);
            }
            else
            {
                values += Value(dconf_client_read(m_tree.Get(), path.c_str())) != nullptr ? 1 : 0;
            }
        }
    }

    WriteTree m_tree;
};

std::unique_ptr<Contender> MakeTextNotifications()
{
    return std::make_unique<Notifications<TextWriter>>("dconf_observer");
}

template <class Operation>
std::unique_ptr<Contender> Make()
{
    return std::make_unique<Repeated<Operation>>();
}

const std::map<std::string, MakeContender>& ContendersByName()
{
    static const std::map<std::string, MakeContender> contenders{
        {"notifications", MakeTextNotifications},
        {"tree_writes", Make<WriteTree>},
        {"tree_reads", Make<ReadTree>},
    };
    return contenders;
}

/// A contender of another process: the line costs one round trip a batch.
class Elsewhere final : public Contender
{
public:
    explicit Elsewhere(const char* name, Medium medium = Medium::Disk)
        : m_folder(medium), m_line({"dconf", name, m_folder.Path()})
    {}

    void Run(int count) override
    {
        m_line.Tell(count);
        m_line.Await();
    }

private:
    const StoreFolder m_folder;
    const ServerLine m_line;
};

void TellOfChange()
{
    TellOwner(1);
}

}  // namespace

std::unique_ptr<Contender> MakeDconfNotifications(Medium medium)
{
    return std::make_unique<Elsewhere>("notifications", medium);
}

std::unique_ptr<Contender> MakeDconfTreeWrites()
{
    return std::make_unique<Elsewhere>("tree_writes");
}

std::unique_ptr<Contender> MakeDconfTreeReads()
{
    return std::make_unique<Elsewhere>("tree_reads");
}

void ServeDconf(const std::vector<std::string>& arguments)
{
    const Session session(arguments.at(1));
    const std::unique_ptr<Contender> contender = ContendersByName().at(arguments.at(0))();
    ReportReady();
    for (;;)
    {
        const int count = AwaitOwner();
        contender->Run(count);
        TellOwner(count);
        contender->Rest();
    }
}

/// Runs in the session of whoever starts it.
void ServeDconfObserver(const std::vector<std::string>& /*arguments*/)
{
    const Client client(dconf_client_new());
    g_signal_connect(client.get(), "changed", G_CALLBACK(TellOfChange), nullptr);
    dconf_client_watch_sync(client.get(), Folder);
    ReportReady();
    g_main_loop_run(g_main_loop_new(nullptr, FALSE));
}

}  // namespace tvo::bench
