#include "denial.h"

namespace tvo::bench {
namespace {

class Denial final : public IQuestion
{
public:
    bool IsEnabled(int /*level*/) const override
    {
        return false;
    }
};

}  // namespace

std::shared_ptr<IQuestion> MakeDenial()
{
    return std::make_shared<Denial>();
}

}  // namespace tvo::bench
