#include "difference.h"

#include <component/settings_manager/i_settings_manager.h>

namespace settings_manager::service {
namespace {

constexpr unsigned char Nothing = 0;
constexpr unsigned char CreatedKinds =
    update::Created | update::ValueChanged | update::AttributesChanged;
constexpr unsigned char DeletedKinds = update::Deleted | update::ValueChanged;

class Comparison final
{
public:
    Comparison(std::string& path, IRowSink* rows) : m_path(path), m_rows(rows) {}

    unsigned char Run(const Node* before, const Node* after)
    {
        if (before == after)
        {
            return Nothing;
        }
        if (before == nullptr)
        {
            PutAll(*after);
            return CreatedKinds;
        }
        if (after == nullptr)
        {
            Erase();
            return DeletedKinds;
        }
        return RunOnBoth(*before, *after);
    }

private:
    unsigned char RunOnBoth(const Node& before, const Node& after)
    {
        unsigned char kinds = before.value != after.value ? update::ValueChanged : Nothing;
        kinds |= before.isReadOnly != after.isReadOnly ? update::AttributesChanged : Nothing;
        if (kinds != Nothing)
        {
            Put(after);
        }
        auto old = before.children.begin();
        auto now = after.children.begin();
        while (old != before.children.end() || now != after.children.end())
        {
            const Node* oldChild = old != before.children.end() ? old->get() : nullptr;
            const Node* nowChild = now != after.children.end() ? now->get() : nullptr;
            KeepFirst(oldChild, nowChild);
            old += oldChild != nullptr ? 1 : 0;
            now += nowChild != nullptr ? 1 : 0;
            kinds |= RunOnChild(oldChild, nowChild);
        }
        return kinds;
    }

    /// Of two children with different levels, leaves the one that comes first.
    static void KeepFirst(const Node*& before, const Node*& after)
    {
        if (before == nullptr || after == nullptr)
        {
            return;
        }
        if (before->level < after->level)
        {
            after = nullptr;
        }
        else if (after->level < before->level)
        {
            before = nullptr;
        }
    }

    /// @returns what the change of a child is to its parent
    unsigned char RunOnChild(const Node* before, const Node* after)
    {
        const std::size_t size = m_path.size();
        AppendLevel(m_path, (before != nullptr ? before : after)->level);
        const unsigned char kinds = Run(before, after);
        m_path.resize(size);
        const bool isOther = (kinds & (update::Created | update::Deleted)) != 0;
        return isOther ? update::ValueChanged : kinds;
    }

    void PutAll(const Node& node)
    {
        if (m_rows == nullptr)
        {
            return;
        }
        Put(node);
        for (const NodePtr& child : node.children)
        {
            const std::size_t size = m_path.size();
            AppendLevel(m_path, child->level);
            PutAll(*child);
            m_path.resize(size);
        }
    }

    void Put(const Node& node)
    {
        if (m_rows != nullptr)
        {
            m_rows->Put(m_path, node);
        }
    }

    void Erase()
    {
        if (m_rows != nullptr)
        {
            m_rows->Erase(m_path);
        }
    }

    std::string& m_path;
    IRowSink* m_rows;
};

}  // namespace

unsigned char Compare(const Node* before, const Node* after, std::string& path, IRowSink* rows)
{
    return Comparison(path, rows).Run(before, after);
}

unsigned char Compare(const Node* before, const Node* after)
{
    std::string path;
    return Compare(before, after, path, nullptr);
}

}  // namespace settings_manager::service
