// The files that a description names. A host without files passes their texts.
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>

namespace tessara::toolkit {

struct LayerFile {
    std::string name;  // for messages
    std::string text;
    std::string wrong;  // the read error; empty on success
};

using OpenLayerFile = std::function<LayerFile(const std::string& name)>;

[[nodiscard]] std::string ReadWhole(std::istream& stream);

[[nodiscard]] OpenLayerFile FilesIn(const std::filesystem::path& directory);

}  // namespace tessara::toolkit
