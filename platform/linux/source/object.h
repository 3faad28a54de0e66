#pragma once

namespace platform {

enum class ObjectKind
{
    Task,
    Endpoint,
    ClientConnection,
    EventSetter,
    EventWaiter,
    Process,
};

/// What a handle stands for. Shared by the handle table and every thread that is using it; the last
/// user closes the descriptors.
class Object
{
public:
    explicit Object(ObjectKind kind) : m_kind(kind) {}
    virtual ~Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    ObjectKind Kind() const
    {
        return m_kind;
    }

    /// Marks the object and shuts it down, so that every thread blocked in it fails. Called once,
    /// when its handle is closed.
    virtual void Close() = 0;

private:
    const ObjectKind m_kind;
};

}  // namespace platform
