#include "handle_table.h"

#include <algorithm>
#include <utility>

#include "descriptor_limit.h"

namespace platform {
namespace {

constexpr unsigned SlotBits = 16;
constexpr std::uint32_t SlotMask = (1U << SlotBits) - 1;
constexpr std::uint32_t GenerationLimit = 0xFF;

// The last slot with the last generation would be the message's sign for "no handle".
constexpr std::size_t MaxSlots = SlotMask;
constexpr std::size_t SlotsAtOnce = 256;

// Every use of the platform goes through the table, so this runs in each program that links it.
const bool g_limitRaised = RaiseDescriptorLimit();

}  // namespace

HandleTable& HandleTable::Instance()
{
    // Never destroyed: threads may still be in a call while the process exits.
    static auto* const table = new HandleTable;
    return *table;
}

HandleTable::HandleTable()
{
    Grow();
}

std::uint32_t HandleTable::Add(std::shared_ptr<Object> object)
{
    const std::lock_guard lock(m_mutex);
    if (m_free.empty())
    {
        Grow();
    }
    if (m_free.empty())
    {
        return XoInvalidHandle;
    }
    const std::uint32_t index = m_free.front();
    m_free.pop_front();
    Slot& slot = m_slots[index];
    slot.object = std::move(object);
    return (slot.generation << SlotBits) | index;
}

int HandleTable::Close(std::uint32_t handle)
{
    std::shared_ptr<Object> object;
    {
        const std::lock_guard lock(m_mutex);
        Slot* slot = FindSlot(handle);
        if (slot == nullptr || slot->object->Kind() == ObjectKind::Task)
        {
            return slot == nullptr ? XoObjectGone : XoInvalidArgument;
        }
        object = std::exchange(slot->object, nullptr);
        slot->generation = slot->generation % GenerationLimit + 1;
        m_free.push_back(handle & SlotMask);
    }
    object->Close();
    return XoOk;
}

std::shared_ptr<Object> HandleTable::Find(std::uint32_t handle, ObjectKind kind)
{
    const std::lock_guard lock(m_mutex);
    const Slot* slot = FindSlot(handle);
    return slot != nullptr && slot->object->Kind() == kind ? slot->object : nullptr;
}

HandleTable::Slot* HandleTable::FindSlot(std::uint32_t handle)
{
    const std::uint32_t index = handle & SlotMask;
    if (index >= m_slots.size())
    {
        return nullptr;
    }
    Slot& slot = m_slots[index];
    return slot.object != nullptr && slot.generation == handle >> SlotBits ? &slot : nullptr;
}

void HandleTable::Grow()
{
    const std::size_t first = m_slots.size();
    m_slots.resize(std::min(MaxSlots, first + SlotsAtOnce));
    for (std::size_t index = first; index < m_slots.size(); ++index)
    {
        m_free.push_back(static_cast<std::uint32_t>(index));
    }
}

}  // namespace platform

int XoHandleClose(std::uint32_t handle)
{
    return platform::HandleTable::Instance().Close(handle);
}
