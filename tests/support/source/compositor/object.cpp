#include "object.h"

#include <cstdlib>
#include <memory>
#include <utility>

namespace support::wayland {

namespace {

struct Object
{
    Requests requests;
    std::function<void(wl_resource*)> destroyed;
};

int Dispatch(const void* /*implementation*/,
             void* target,
             std::uint32_t /*opcode*/,
             const wl_message* message,
             wl_argument* arguments)
{
    auto* resource = static_cast<wl_resource*>(target);
    const std::string_view name = message->name;
    const Requests& requests = static_cast<Object*>(wl_resource_get_user_data(resource))->requests;
    const auto request = requests.find(name);
    if (request != requests.end())
    {
        request->second(arguments);
    }
    else if (name == "destroy" || name == "release")
    {
        wl_resource_destroy(resource);
    }
    else if (std::string_view(message->signature).find('n') != std::string_view::npos)
    {
        wl_resource_post_error(resource, 0, "%s is not offered here", message->name);
    }
    return 0;
}

void Destroyed(wl_resource* resource)
{
    const std::unique_ptr<Object> object(static_cast<Object*>(wl_resource_get_user_data(resource)));
    if (object->destroyed)
    {
        object->destroyed(resource);
    }
}

}  // namespace

wl_resource* MakeObject(const NewObject& object,
                        Requests requests,
                        std::function<void(wl_resource*)> destroyed)
{
    wl_resource* resource =
        wl_resource_create(object.client, &object.interface, object.version, object.id);
    if (resource == nullptr)
    {
        std::abort();  // out of memory
    }
    auto* data = new Object{std::move(requests), std::move(destroyed)};
    wl_resource_set_dispatcher(resource, Dispatch, nullptr, data, Destroyed);
    return resource;
}

Global::Global(wl_display* display, const wl_interface& interface, int version, Bind bind)
    : m_interface(interface),
      m_bind(std::move(bind)),
      m_global(wl_global_create(display, &interface, version, this, Bound))
{}

Global::~Global()
{
    wl_global_destroy(m_global);
}

void Global::Remove()
{
    wl_global_remove(m_global);
}

void Global::Bound(wl_client* client, void* global, std::uint32_t version, std::uint32_t id)
{
    const auto* self = static_cast<Global*>(global);
    self->m_bind({client, self->m_interface, static_cast<int>(version), id});
}

}  // namespace support::wayland
