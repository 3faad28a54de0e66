#include <algorithm>
#include <array>

#include <component/app_manager/tvo_ipc/control_records.h>
#include <component/plk/result_code_text.h>

namespace app_manager::control {
namespace {

struct Sentence
{
    int code;
    const char* text;
};

constexpr std::array Sentences = {
    Sentence{refusals::UnknownName, "no application or service has this name"},
    Sentence{refusals::NotAllowed, "its configuration does not allow this command"},
    Sentence{refusals::NotForServices, "a plain service does not take this command"},
    Sentence{refusals::NotReady, "it is not ready to take commands"},
    Sentence{refusals::AlreadyClosed, "it is closed already"},
    Sentence{refusals::IsStopping, "the application manager is about to end"},
    Sentence{refusals::BadRequest, "the application manager cannot make sense of the request"},
};

}  // namespace

std::string RefusalText(int code)
{
    const auto* const found =
        std::find_if(Sentences.begin(),
                     Sentences.end(),
                     [code](const auto& entry) { return entry.code == code; });
    return found != Sentences.end() ? found->text : plk::zinx::ResultCodeText(code);
}

}  // namespace app_manager::control
