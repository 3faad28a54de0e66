#include <stdexcept>

#include <setting.pb.h>

#include "settings_rows.h"
#include "settings_tree.h"

namespace tvo::bench {
namespace {

message::Setting MakeGroup(std::size_t group)
{
    message::Setting setting;
    auto& members = *setting.mutable_map()->mutable_members();
    for (std::size_t leaf = 0; leaf < GroupLeaves; ++leaf)
    {
        message::Setting& member = members[LeafName(leaf)];
        if (IsText(leaf))
        {
            member.set_text(TextOf(group, leaf, 1));
        }
        else
        {
            member.set_int64(NumberOf(group, leaf, 1));
        }
    }
    return setting;
}

message::Setting MakeTree()
{
    message::Setting setting;
    auto& groups = *setting.mutable_map()->mutable_members();
    for (std::size_t group = 0; group < TreeGroups; ++group)
    {
        groups[GroupName(group)] = MakeGroup(group);
    }
    return setting;
}

class ThereAndBack
{
public:
    void operator()() const
    {
        message::Setting copy;
        if (!copy.ParseFromString(m_tree.SerializeAsString()) || !copy.has_map())
        {
            throw std::runtime_error("protobuf failed");
        }
    }

private:
    const message::Setting m_tree = MakeTree();
};

}  // namespace

std::unique_ptr<Contender> MakeProtobufSerializations()
{
    return std::make_unique<Repeated<ThereAndBack>>();
}

}  // namespace tvo::bench
