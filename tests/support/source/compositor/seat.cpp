#include "seat.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

#include <linux/input-event-codes.h>
#include <sys/mman.h>
#include <unistd.h>
#include <wayland-server-protocol.h>
#include <xkbcommon/xkbcommon.h>

namespace support::wayland {

namespace {

std::string MakeKeymap(const std::string& layouts)
{
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), xkb_context_unref);
    xkb_rule_names names{};
    names.layout = layouts.empty() ? "us" : layouts.c_str();
    const std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> keymap(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS),
        xkb_keymap_unref);
    if (!keymap)
    {
        throw std::runtime_error("No keymap for a keyboard of " + layouts);
    }
    const std::unique_ptr<char, decltype(&free)> text(
        xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), free);
    return text.get();
}

// Clients map the file and expect a zero byte at its end.
void SendKeymap(wl_resource* keyboard, const std::string& keymap)
{
    const std::size_t size = keymap.size() + 1;
    const int file = memfd_create("keymap", MFD_CLOEXEC);
    if (pwrite(file, keymap.c_str(), size, 0) == static_cast<ssize_t>(size))
    {
        wl_keyboard_send_keymap(
            keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file, static_cast<std::uint32_t>(size));
    }
    close(file);
}

}  // namespace

Seat::Seat(wl_display* display)
    : m_display(display),
      m_keymap(MakeKeymap(m_layouts)),
      m_global(display, wl_seat_interface, 5, [this](const NewObject& object) { Bind(object); })
{}

void Seat::SetFocus(const SurfacePointer& surface)
{
    if (surface == m_focus)
    {
        return;
    }
    for (wl_resource* keyboard : DevicesOf(m_focus, m_keyboards))
    {
        wl_keyboard_send_leave(keyboard, NextSerial(), m_focus->surface);
    }
    m_focus = surface;
    for (wl_resource* keyboard : DevicesOf(m_focus, m_keyboards))
    {
        wl_array keys{};
        wl_keyboard_send_enter(keyboard, NextSerial(), m_focus->surface, &keys);
    }
    SendGroup();
}

void Seat::PressKey(std::uint32_t key)
{
    for (wl_resource* keyboard : DevicesOf(m_focus, m_keyboards))
    {
        for (const auto state : {WL_KEYBOARD_KEY_STATE_PRESSED, WL_KEYBOARD_KEY_STATE_RELEASED})
        {
            wl_keyboard_send_key(keyboard, NextSerial(), Milliseconds(), key, state);
        }
    }
}

void Seat::MovePointer(const Spot& spot)
{
    const wl_fixed_t x = wl_fixed_from_int(spot.place.x());
    const wl_fixed_t y = wl_fixed_from_int(spot.place.y());
    if (spot.surface != m_pointed)
    {
        for (wl_resource* pointer : DevicesOf(m_pointed, m_pointers))
        {
            wl_pointer_send_leave(pointer, NextSerial(), m_pointed->surface);
            wl_pointer_send_frame(pointer);
        }
        m_pointed = spot.surface;
        for (wl_resource* pointer : DevicesOf(m_pointed, m_pointers))
        {
            wl_pointer_send_enter(pointer, NextSerial(), m_pointed->surface, x, y);
            wl_pointer_send_frame(pointer);
        }
    }
    for (wl_resource* pointer : DevicesOf(m_pointed, m_pointers))
    {
        wl_pointer_send_motion(pointer, Milliseconds(), x, y);
        wl_pointer_send_frame(pointer);
    }
}

void Seat::Click() const
{
    for (wl_resource* pointer : DevicesOf(m_pointed, m_pointers))
    {
        for (const auto state : {WL_POINTER_BUTTON_STATE_PRESSED, WL_POINTER_BUTTON_STATE_RELEASED})
        {
            wl_pointer_send_button(pointer, NextSerial(), Milliseconds(), BTN_LEFT, state);
            wl_pointer_send_frame(pointer);
        }
    }
}

void Seat::SetLayouts(const std::string& layouts)
{
    m_keymap = MakeKeymap(layouts);
    m_layouts = layouts;
    m_group = 0;
    for (wl_resource* keyboard : m_keyboards)
    {
        SendKeymap(keyboard, m_keymap);
    }
    SendGroup();
}

const std::string& Seat::Layouts() const
{
    return m_layouts;
}

std::uint32_t Seat::Group() const
{
    return m_group;
}

void Seat::StepLayout()
{
    const auto others = std::count(m_layouts.begin(), m_layouts.end(), ',');
    m_group = m_group < others ? m_group + 1 : 0;
    SendGroup();
}

void Seat::Bind(const NewObject& object)
{
    const auto getPointer = [this, client = object.client, version = object.version](Arguments a)
    {
        MakeDevice(m_pointers, {client, wl_pointer_interface, version, a[0].n});
    };
    const auto getKeyboard = [this, client = object.client, version = object.version](Arguments a)
    {
        MakeKeyboard({client, wl_keyboard_interface, version, a[0].n});
    };
    wl_resource* seat =
        MakeObject(object, {{"get_pointer", getPointer}, {"get_keyboard", getKeyboard}});
    wl_seat_send_capabilities(seat, WL_SEAT_CAPABILITY_POINTER | WL_SEAT_CAPABILITY_KEYBOARD);
}

wl_resource* Seat::MakeDevice(Devices& devices, const NewObject& object)
{
    const auto destroyed = [&devices](wl_resource* gone)
    {
        devices.erase(gone);
    };
    return *devices.insert(MakeObject(object, {}, destroyed)).first;
}

void Seat::MakeKeyboard(const NewObject& object)
{
    wl_resource* keyboard = MakeDevice(m_keyboards, object);
    SendKeymap(keyboard, m_keymap);
    wl_keyboard_send_repeat_info(keyboard, 0, 0);
}

std::vector<wl_resource*> Seat::DevicesOf(const SurfacePointer& surface, const Devices& devices)
{
    std::vector<wl_resource*> found;
    for (wl_resource* device : devices)
    {
        if (surface && surface->surface != nullptr &&
            wl_resource_get_client(device) == wl_resource_get_client(surface->surface))
        {
            found.push_back(device);
        }
    }
    return found;
}

void Seat::SendGroup() const
{
    for (wl_resource* keyboard : DevicesOf(m_focus, m_keyboards))
    {
        wl_keyboard_send_modifiers(keyboard, NextSerial(), 0, 0, 0, m_group);
    }
}

std::uint32_t Seat::NextSerial() const
{
    return wl_display_next_serial(m_display);
}

}  // namespace support::wayland
