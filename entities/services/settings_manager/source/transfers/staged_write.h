#pragma once

#include <cstdint>
#include <vector>

#include <component/settings_manager/raw_item.h>

#include "store/store.h"
#include "store/tree_builder.h"

namespace settings_manager::service {

/// A tree on its way from a client. The store knows nothing of it before it is complete.
class StagedWrite final
{
public:
    static constexpr std::uint64_t MostNodes = 1'000'000;

    /// @param count  how many nodes will come
    /// @throws nvl::Error `InsufficientResources` for too many
    StagedWrite(WriteMode mode, nvl::Path path, std::uint64_t count);

    /// Takes the next nodes, in the order in which a client's `Serialize` lists them.
    /// @throws nvl::Error `InvalidSize` for more than were announced; the codes of `TreeBuilder`
    /// and
    ///         of a bad attribute block. The write is of no use after that.
    void Add(std::vector<impl::RawItem>&& items);

    [[nodiscard]] bool IsComplete() const noexcept
    {
        return m_builder.Count() == m_count;
    }

    /// Memory that is held, about.
    [[nodiscard]] std::size_t Bytes() const noexcept
    {
        return m_bytes;
    }

    /// Writes the whole tree, when it is complete.
    /// @throws nvl::Error, see `Store`
    Change CommitTo(Store& store);

private:
    WriteMode m_mode;
    nvl::Path m_path;
    std::uint64_t m_count;
    std::size_t m_bytes = 0;
    TreeBuilder m_builder;
};

}  // namespace settings_manager::service
