#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <stdlib.h>

#include <component/nvl/error.h>
#include <component/settings_manager/raw_setting.h>

#include "store/path_reader.h"
#include "store/snapshot_reader.h"
#include "store/store.h"
#include "transfers/staged_write.h"

namespace settings_manager::service {

namespace codes = plk::codes;

using List = Setting::List;
using Map = Setting::Map;
using Items = std::vector<impl::RawItem>;

/// A folder that goes with the test, in memory: a flush to a disk takes longer than all else.
struct TempFolder
{
    std::string path = "/dev/shm/settings.XXXXXX";

    TempFolder()
    {
        ::mkdtemp(path.data());
    }

    ~TempFolder()
    {
        std::filesystem::remove_all(path);
    }

    [[nodiscard]] std::string File(const char* name) const
    {
        return path + "/" + name;
    }
};

inline std::string ReadFile(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteFile(const std::string& file, std::string_view bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

inline Items ItemsOf(std::string_view path, const Setting& setting)
{
    Items items;
    Serialize(ReadPath(path), setting, items);
    return items;
}

inline Change Write(Store& store, WriteMode mode, std::string_view path, Items items)
{
    StagedWrite write(mode, ReadPath(path), items.size());
    write.Add(std::move(items));
    return write.CommitTo(store);
}

inline Change Write(Store& store, WriteMode mode, std::string_view path, const Setting& setting)
{
    return Write(store, mode, path, ItemsOf(path, setting));
}

inline Change Create(Store& store, std::string_view path, const Setting& setting)
{
    return Write(store, WriteMode::Create, path, setting);
}

/// Reads a setting in chunks as a client does.
inline Setting ReadAll(SnapshotReader reader)
{
    Items items;
    while (!reader.IsAtEnd())
    {
        reader.Read(7, items);
    }
    nvl::Path path;
    Setting setting;
    EXPECT_EQ(Deserialize(items, path, setting), nvl::ResultOk);
    return setting;
}

inline Setting ReadAll(const Store& store, std::string_view path = "")
{
    return ReadAll(SnapshotReader(store.At(ReadPath(path)), TextOf(ReadPath(path))));
}

inline std::unique_ptr<Store> OpenStore(const std::string& file)
{
    return std::make_unique<Store>(std::make_unique<NodeTable>(file));
}

/// @returns the code of the nvl::Error that comes out, 0 for none
template <class Work>
int CodeOf(Work&& work)
{
    try
    {
        work();
        return 0;
    }
    catch (const nvl::Error& error)
    {
        return error.Code();
    }
}

inline Setting Text(const char* text, bool isReadOnly = false)
{
    return {std::string(text), {isReadOnly}};
}

/// One value of each kind, lists and maps with children, names in unusual order, a read-only node.
inline Setting SampleTree()
{
    const Setting kinds{List{{nvl_sm::None()},
                             {true},
                             {static_cast<signed char>(-1)},
                             {short{-2}},
                             {-3},
                             {-4L},
                             {0.5},
                             {plk::types::Timestamp{7}},
                             {std::string()},
                             {Setting::Blob()},
                             {Setting::Blob{0, 1, 2}},
                             {10U},
                             {11UL},
                             {static_cast<unsigned char>(8)},
                             {static_cast<unsigned short>(9)}}};
    return {Map{{"a", {Map{{"b", Text("x")}, {"c", {List{}}}}}},
                {"a!", Text("sorts before 'a' as a text of a path")},
                {"a\xC3\xA9", {Map{}}},
                {"fixed", Text("held", true)},
                {"kinds", kinds},
                {"list", {List(12, Text("e"))}}}};
}

}  // namespace settings_manager::service
