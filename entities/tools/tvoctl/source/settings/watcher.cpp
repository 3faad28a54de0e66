#include "watcher.h"

#include <algorithm>
#include <utility>

#include "../failure.h"
#include "difference.h"
#include "report.h"

namespace tvoctl {
namespace {

using settings_manager::Setting;
namespace update = settings_manager::update;

/// For one attempt; there is no end of attempts.
constexpr std::chrono::seconds ConnectAgainPatience{1};

/// A setting above the elements of a list is told as a whole: where elements go, others get other
/// places.
nvl::Path WithoutElements(const nvl::Path& path, std::size_t start)
{
    const auto begin = path.begin() + static_cast<std::ptrdiff_t>(start);
    const auto index =
        std::find_if(begin, path.end(), [](const nvl::Level& level) { return level.index() == 0; });
    return {path.begin(), index};
}

}  // namespace

Watcher::Watcher(Environment& environment, std::string server, nvl::Path path, bool printsInitial)
    : m_environment(environment),
      m_server(std::move(server)),
      m_path(std::move(path)),
      m_printsInitial(printsInitial)
{}

void Watcher::Run(std::chrono::milliseconds patience)
{
    Connect(patience);
    while (m_environment.keepWatching())
    {
        if (m_hasFailed)
        {
            std::rethrow_exception(m_failure);
        }
        if (!m_session || !IsAlive())
        {
            ConnectAgain();
        }
    }
}

void Watcher::Connect(std::chrono::milliseconds patience)
{
    auto session =
        std::make_unique<WatchSession>(*m_environment.connectSettings(m_server, patience));
    std::optional<Setting> now = session->Subscribe(
        m_path,
        [this, &store = session->GetStore()](const nvl::Path& path, unsigned char kinds)
        { OnUpdate(store, path, kinds); });
    PrintStart(now);
    m_known = std::move(now);
    m_session = std::move(session);
    m_session->OpenGate();
}

void Watcher::ConnectAgain()
{
    // All of the old connection must have gone, or the new one would share its dead parts.
    m_session.reset();
    try
    {
        Connect(ConnectAgainPatience);
    }
    catch (const Failure& failure)
    {
        if (failure.Status() != ExitStatus::NoService)
        {
            throw;
        }
    }
}

bool Watcher::IsAlive() const
{
    try
    {
        static_cast<void>(m_session->GetStore().Exists(m_path));
        return true;
    }
    catch (const Failure& failure)
    {
        if (failure.Status() != ExitStatus::NoService)
        {
            throw;
        }
        return false;
    }
}

void Watcher::PrintStart(const std::optional<Setting>& now)
{
    if (std::exchange(m_wasConnected, true))
    {
        PrintChanges(m_environment, FindDifference(m_path, Pointer(m_known), Pointer(now)));
    }
    else if (m_printsInitial)
    {
        PrintSetting(m_environment, "initial", m_path, Pointer(now));
    }
}

void Watcher::OnUpdate(const Store& store, const nvl::Path& path, unsigned char kinds) noexcept
try
{
    PrintUpdate(store, nvl::StartsWith(path, m_path) ? path : m_path, kinds);
}
catch (const Failure& failure)
{
    // That the service has gone is found out by the other thread, which then tells the difference.
    if (failure.Status() != ExitStatus::NoService && !m_hasFailed)
    {
        m_failure = std::current_exception();
        m_hasFailed = true;
    }
}

void Watcher::PrintUpdate(const Store& store, const nvl::Path& path, unsigned char kinds)
{
    const nvl::Path place = WithoutElements(path, m_path.size());
    const bool isDeletion = (kinds & update::Deleted) != 0 && (kinds & update::Created) == 0;
    // Several changes joined into one have the watched path, and may have left something there.
    if (isDeletion && place == path && path != m_path)
    {
        PrintDeletion(path);
        return;
    }
    std::optional<Setting> now = store.Find(place);
    const Setting* const known = m_known ? FindPlace(*m_known, WayTo(place)) : nullptr;
    auto changes = FindDifference(place, known, Pointer(now));
    if (changes.empty())
    {
        // A later change has overtaken this one: what is there now has been printed.
        changes.push_back({path, kinds});
    }
    PrintChanges(m_environment, changes);
    PutPlace(m_known, WayTo(place), std::move(now));
}

/// Without a look at the store, where the setting may be there again.
void Watcher::PrintDeletion(const nvl::Path& path)
{
    PrintChanges(m_environment, {{path, update::Deleted}});
    PutPlace(m_known, WayTo(path), std::nullopt);
}

Levels Watcher::WayTo(const nvl::Path& path) const
{
    return Levels(path).subspan(m_path.size());
}

}  // namespace tvoctl
