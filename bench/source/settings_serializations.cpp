#include <stdexcept>

#include <component/settings_manager/raw_setting.h>

#include "settings_rows.h"
#include "settings_store.h"

namespace tvo::bench {
namespace {

using settings_manager::Setting;

class ThereAndBack
{
public:
    ThereAndBack()
    {
        if (Copy() != m_tree)
        {
            throw std::runtime_error("the raw form loses something");
        }
    }

    void operator()() const
    {
        Copy();
    }

private:
    Setting Copy() const
    {
        std::vector<settings_manager::impl::RawItem> items;
        settings_manager::Serialize(m_path, m_tree, items);
        nvl::Path path;
        Setting copy;
        CheckCode(settings_manager::Deserialize(items, path, copy).first, "reading the raw form");
        return copy;
    }

    const nvl::Path m_path = SettingsPath();
    const Setting m_tree = MakeTree(1);
};

}  // namespace

std::unique_ptr<Contender> MakeSerializations()
{
    return std::make_unique<Repeated<ThereAndBack>>();
}

}  // namespace tvo::bench
