// The files that a description names. A host that has no files hands in their texts.
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>

namespace tessara::toolkit {

struct LayerFile {
    std::string name;  // for messages
    std::string text;
    std::string wrong;  // why it can't be read; empty if it can
};

using OpenLayerFile = std::function<LayerFile(const std::string& name)>;

[[nodiscard]] std::string ReadWhole(std::istream& stream);

[[nodiscard]] OpenLayerFile FilesIn(const std::filesystem::path& directory);

}  // namespace tessara::toolkit
