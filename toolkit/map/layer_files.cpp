#include "map/layer_files.h"

#include <istream>

#include "lines/input_files.h"

namespace tessara::toolkit {

std::string ReadWhole(std::istream& stream) {
    std::string text;
    char part[4096];
    while (stream.read(part, sizeof part) || stream.gcount() > 0)
        text.append(part, static_cast<std::size_t>(stream.gcount()));
    return text;
}

OpenLayerFile FilesIn(const std::filesystem::path& directory) {
    return [directory](const std::string& name) {
        LayerFile file{(directory / name).string(), {}, {}};
        file.wrong = ReadFile(file.name, [&file](std::istream& stream) { file.text = ReadWhole(stream); });
        return file;
    };
}

}  // namespace tessara::toolkit
