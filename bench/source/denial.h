#pragma once

#include <memory>

namespace tvo::bench {

/// A question behind a virtual call.
class IQuestion
{
public:
    virtual ~IQuestion() = default;
    virtual bool IsEnabled(int level) const = 0;
};

/// Says no. Made in a file of its own, or the compiler would see the answer and ask nobody.
std::shared_ptr<IQuestion> MakeDenial();

}  // namespace tvo::bench
