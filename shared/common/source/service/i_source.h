#pragma once

namespace tvo::service {

/// Something that the loop waits for.
class ISource
{
public:
    enum class Amount
    {
        One,             ///< one piece of work, so that sources take turns
        OneOfEachClient  ///< all that had come when this began, as far as clients play fair
    };

    virtual ~ISource() = default;

    /// Does what there is to do, without waiting. Lets nothing escape.
    virtual void OnReady(Amount amount) = 0;
};

}  // namespace tvo::service
