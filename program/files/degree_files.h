// Converts whole files of lines `latitude longitude [height]`, line by line.
#pragma once

#include "files/degree_conversion.h"
#include "files/pipeline.h"

namespace tessara::program {

[[nodiscard]] ExitCode ConvertDegreeFiles(const InputFiles& files, const DegreeConversion& conversion);

}  // namespace tessara::program
