#include "style/palette_id_interactor.h"

#include <mutex>
#include <utility>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>

namespace vdi::uikit::utils::style {

PaletteId PaletteIdInteractor::GetPaletteId() const
{
    ZIN_CHECK(m_id.has_value(), "Palette id not set");
    return *m_id;
}

void PaletteIdInteractor::SetPaletteId(PaletteId id)
{
    m_id = id;
    if (const auto callback = Callback())
        callback();
    else
        TVO_LOG_DEBUG("No callback, set parameter only");
}

void PaletteIdInteractor::RegisterCallback(std::function<void()> callback)
{
    const std::unique_lock lock(m_mutex);
    ZIN_CHECK(!m_callback, "callback was already registered!");
    m_callback = std::move(callback);
}

void PaletteIdInteractor::UnregisterCallback()
{
    const std::unique_lock lock(m_mutex);
    m_callback = nullptr;
}

std::function<void()> PaletteIdInteractor::Callback() const
{
    const std::shared_lock lock(m_mutex);
    return m_callback;
}

std::shared_ptr<IPaletteIdInteractor> CreatePaletteIdInteractor()
{
    return std::make_shared<PaletteIdInteractor>();
}

}  // namespace vdi::uikit::utils::style
