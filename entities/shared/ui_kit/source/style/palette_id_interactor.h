#pragma once

#include <optional>
#include <shared_mutex>

#include <shared/ui_kit/style/palette_id_interactor.h>

namespace vdi::uikit::utils::style {

class PaletteIdInteractor final : public IPaletteIdInteractor
{
public:
    [[nodiscard]] PaletteId GetPaletteId() const override;
    void SetPaletteId(PaletteId id) override;
    void RegisterCallback(std::function<void()> callback) override;
    void UnregisterCallback() override;

private:
    std::function<void()> Callback() const;

    std::function<void()> m_callback;
    mutable std::shared_mutex m_mutex;  // guards the callback, not the identifier
    std::optional<PaletteId> m_id;
};

}  // namespace vdi::uikit::utils::style
