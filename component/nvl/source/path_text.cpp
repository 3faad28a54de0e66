#include <component/nvl/level_reader.h>
#include <component/nvl/path_text.h>

namespace nvl {

std::pair<Path, IdState> FromString(std::string_view text, const IdSpec& spec)
{
    Path path;
    const IdState state = LevelReader(spec).Read(text, path);
    if (state != IdState::Ok)
    {
        path.clear();
    }
    return {std::move(path), state};
}

}  // namespace nvl
