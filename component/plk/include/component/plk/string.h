#pragma once

#include <algorithm>
#include <cstddef>
#include <new>
#include <stdexcept>
#include <utility>

#include <component/plk/allocator.h>
#include <component/plk/string_view.h>

namespace zin::types {

/// Keeps a block of characters until the end of an operation that may still read from it.
template <class CharT, class Allocator>
class auto_delete
{
public:
    explicit auto_delete(Allocator allocator) noexcept : m_allocator(std::move(allocator)) {}
    ~auto_delete()
    {
        reset(nullptr);
    }

    auto_delete(const auto_delete&) = delete;
    auto_delete& operator=(const auto_delete&) = delete;

    /// Frees what was held and takes over `block`.
    void reset(CharT* block) noexcept
    {
        m_allocator.free(m_block);
        m_block = block;
    }

    [[nodiscard]] const CharT* get() const noexcept
    {
        return m_block;
    }

private:
    CharT* m_block = nullptr;
    Allocator m_allocator;
};

/// Marks a string that is made without a place for characters.
struct without_block_t
{};

/// A zero-terminated string with room for seven characters inside the object. It carries its
/// allocator: a copy shares it, a move takes it along.
template <class CharT, class Traits, class Allocator>
class basic_string_t
{
public:
    using view_type = basic_string_view<CharT, Traits>;

    static constexpr std::size_t InlineCapacity = 7;
    static constexpr std::size_t MaxSize = 0x7FFFFFFFFFFFFFFE;

    basic_string_t() noexcept : basic_string_t(Allocator()) {}

    explicit basic_string_t(Allocator allocator) noexcept : m_allocator(std::move(allocator))
    {
        reset_to_inline();
    }

    /// An empty string of capacity 0; its first growth finds the room inside the object.
    explicit basic_string_t(without_block_t) noexcept : basic_string_t()
    {
        m_capacity = 0;
    }

    explicit basic_string_t(view_type text, Allocator allocator = Allocator())
        : basic_string_t(std::move(allocator))
    {
        append_by_traits(text.data(), text.size());
    }

    basic_string_t(const basic_string_t& other) : m_allocator(other.m_allocator)
    {
        reset_to_inline();
        assign_new(other.view());
    }

    basic_string_t(basic_string_t&& other) noexcept
    {
        take_over(other);
    }

    ~basic_string_t()
    {
        free_block();
    }

    basic_string_t& operator=(basic_string_t other) noexcept
    {
        free_block();
        take_over(other);
        return *this;
    }

    [[nodiscard]] const CharT* data() const noexcept
    {
        return m_data;
    }
    [[nodiscard]] std::size_t size() const noexcept
    {
        return m_capacity == 0 ? 0 : m_size;
    }
    [[nodiscard]] std::size_t capacity() const noexcept
    {
        return m_capacity;
    }
    [[nodiscard]] bool empty() const noexcept
    {
        return size() == 0;
    }
    [[nodiscard]] view_type view() const noexcept
    {
        return view_type(m_data, size());
    }
    [[nodiscard]] const Allocator& allocator() const noexcept
    {
        return m_allocator;
    }

    /// Appends `count` characters, which may lie inside this string.
    /// @throws std::length_error, std::bad_alloc; the string is then unchanged
    void append_by_traits(const CharT* text, std::size_t count)
    {
        auto_delete<CharT, Allocator> guard(m_allocator);
        reserve_extra(&guard, count);
        Traits::move(m_data + m_size, text, count);
        set_size(m_size + count);
    }

    /// Makes room for `extra` more characters and keeps the content.
    /// @param guard  takes over the former block, so that text inside it stays readable; with null
    ///               the block is freed at once
    /// @throws std::length_error, std::bad_alloc; the string is then unchanged
    void reserve_extra(auto_delete<CharT, Allocator>* guard, std::size_t extra)
    {
        if (m_capacity == 0)
        {
            reset_to_inline();
        }
        if (extra <= m_capacity - m_size)
        {
            return;
        }
        if (extra >= MaxSize + 1 - m_size)
        {
            throw_length_error();
        }
        grow(std::min(std::max(m_size + extra, 2 * m_capacity), MaxSize), guard);
    }

    friend bool operator==(const basic_string_t& left, const basic_string_t& right) noexcept
    {
        return left.view() == right.view();
    }

private:
    [[noreturn]] static void throw_length_error()
    {
        throw std::length_error("zin::basic_string_t::reserve_extra()");
    }

    [[nodiscard]] bool has_block() const noexcept
    {
        return m_capacity > InlineCapacity;
    }

    void set_size(std::size_t size) noexcept
    {
        m_size = size;
        m_data[size] = CharT();
    }

    void reset_to_inline() noexcept
    {
        m_data = m_inline;
        m_capacity = InlineCapacity;
        set_size(0);
    }

    [[nodiscard]] CharT* allocate(std::size_t capacity) const
    {
        auto* const block =
            static_cast<CharT*>(m_allocator.allocate(capacity * sizeof(CharT) + sizeof(CharT)));
        if (block == nullptr)
        {
            throw std::bad_alloc();
        }
        return block;
    }

    void free_block() noexcept
    {
        if (has_block())
        {
            m_allocator.free(m_data);
        }
    }

    void grow(std::size_t capacity, auto_delete<CharT, Allocator>* guard)
    {
        CharT* const block = allocate(capacity);
        Traits::copy(block, m_data, m_size + 1);
        if (guard != nullptr && has_block())
        {
            guard->reset(m_data);
        }
        else
        {
            free_block();
        }
        m_data = block;
        m_capacity = capacity;
    }

    /// Fills a string that is inline and empty: a copy keeps no more room than its text needs, but
    /// never less than the first growth would give.
    void assign_new(view_type text)
    {
        if (text.size() > MaxSize)
        {
            throw_length_error();
        }
        if (text.size() > InlineCapacity)
        {
            const std::size_t capacity = std::max(text.size(), 2 * InlineCapacity);
            m_data = allocate(capacity);
            m_capacity = capacity;
        }
        Traits::copy(m_data, text.data(), text.size());
        set_size(text.size());
    }

    void take_over(basic_string_t& other) noexcept
    {
        m_allocator = std::move(other.m_allocator);
        if (other.has_block())
        {
            m_data = other.m_data;
            m_capacity = other.m_capacity;
            m_size = other.m_size;
        }
        else
        {
            reset_to_inline();
            Traits::copy(m_inline, other.m_inline, InlineCapacity + 1);
            m_size = other.size();
        }
        other.reset_to_inline();
    }

    CharT* m_data = nullptr;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    Allocator m_allocator;
    CharT m_inline[InlineCapacity + 1] = {};
};

/// The string that exceptions keep their text in.
using string16_t = basic_string_t<char16_t, char_traits<char16_t>, abi_v1_allocator>;

}  // namespace zin::types
